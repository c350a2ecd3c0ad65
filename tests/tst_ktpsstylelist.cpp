// Tests of KtPsStyleList and StyleListItem: records against rows, the index
// guards, the painted rows and the right-click request.

#include <CJxPlotStyle>
#include <KtPsStyleList>
#include <QContextMenuEvent>
#include <QSignalSpy>
#include <QtTest>
#include <StyleListItem>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

namespace {

QStringList recordNames(KtPsStyleList& list)
{
    QStringList names;
    for (const PlotStyleList& record : list.getStyleDataList())
        names << record.name;
    return names;
}

StyleListItem* rowWidget(KtPsStyleList& list, int row)
{
    return qobject_cast<StyleListItem*>(list.itemWidget(list.item(row)));
}

} // namespace

class TestKtPsStyleList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void recordsAndRows()
    {
        CJxPlotStyle a, b, c;
        KtPsStyleList list;
        list.insertStyleData(0, "A", Qt::red, &a);
        list.insertStyleData(1, "B", Qt::green, &b);
        list.insertStyleData(5, "ignored", Qt::blue, &c);
        list.insertStyleData(-1, "ignored", Qt::blue, &c);
        QCOMPARE(recordNames(list), QStringList({"A", "B"}));
        QCOMPARE(list.count(), 0);
        list.refreshStyleList();
        QCOMPARE(list.count(), 2);
        list.setCurrentRow(1);

        QSignalSpy rowChanged(&list, &QListWidget::currentRowChanged);
        QSignalSpy selection(&list, &QListWidget::itemSelectionChanged);
        list.insertStyleData(0, "C", Qt::blue, &c);
        QCOMPARE(list.count(), 2); // the rows wait for the rebuild
        list.refreshStyleList();
        QCOMPARE(rowChanged.count() + selection.count(), 0);
        QCOMPARE(list.count(), 3);
        for (int row = 0; row < 3; ++row) {
            QCOMPARE(list.item(row)->data(Qt::SizeHintRole).toSize(), QSize(185, 20));
            QVERIFY(rowWidget(list, row) && rowWidget(list, row)->size() == QSize(185, 20));
        }
        QCOMPARE(list.getStyleDataList().at(0).style, &c);

        list.modifyStyleData(2, &a); // marks only: the stored object stays
        const PlotStyleList third = list.getStyleDataList().at(2);
        QVERIFY(third.modified && third.style == &b);
        list.removeStyleData(3);
        list.removeStyleData(-1);
        list.removeStyleData(0);
        QCOMPARE(recordNames(list), QStringList({"A", "B"}));
        list.insertNewItem(7, Qt::black, "appended");
        QCOMPARE(list.count(), 4);
        list.clearStyleDataList();
        QVERIFY(list.getStyleDataList().isEmpty());
        list.refreshStyleList();
        QCOMPARE(list.count(), 0);
    }

    void rename_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QStringList>("names");
        // clang-format off
        QTest::newRow("-1") << -1 << QStringList({"A", "B"});
        QTest::newRow("size") << 2 << QStringList({"A", "B"});
        QTest::newRow("0") << 0 << QStringList({"Z", "B"});
        // clang-format on
    }
    void rename()
    {
        QFETCH(int, index);
        QFETCH(QStringList, names);
        KtPsStyleList list;
        list.insertStyleData(0, "A", Qt::red, nullptr);
        list.insertStyleData(1, "B", Qt::red, nullptr);
        list.renameStyle(index, "Z");
        QCOMPARE(recordNames(list), names);
        QCOMPARE(list.getStyleDataList().at(0).modified, index == 0);
        QVERIFY(!list.getStyleDataList().at(1).modified);
    }

    void getStyleData_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<bool>("found");
        // clang-format off
        QTest::newRow("0") << 0 << true;
        QTest::newRow("254") << 254 << true;
        QTest::newRow("255: above the bound") << 255 << false;
        QTest::newRow("299: above the bound") << 299 << false;
        QTest::newRow("-1") << -1 << false;
        QTest::newRow("past the records") << 300 << false;
        // clang-format on
    }
    void getStyleData()
    {
        QFETCH(int, index);
        QFETCH(bool, found);
        std::vector<CJxPlotStyle> styles(300);
        KtPsStyleList list;
        for (int i = 0; i < 300; ++i)
            list.insertStyleData(i, QString::number(i), Qt::red, &styles[i]);
        CJxPlotStyle sentinel;
        CJxPlotStyle* style = &sentinel;
        list.getStyleData(index, style);
        QCOMPARE(style, found ? &styles[index] : &sentinel);
    }

    void hexColour_data()
    {
        QTest::addColumn<QColor>("color");
        QTest::addColumn<QString>("hex");
        // clang-format off
        QTest::newRow("orange") << QColor(255, 128, 0) << "#ff8000";
        QTest::newRow("black") << QColor(0, 0, 0) << "#000000";
        QTest::newRow("small digits") << QColor(10, 11, 12) << "#0a0b0c";
        QTest::newRow("alpha ignored") << QColor(1, 2, 3, 4) << "#010203";
        // clang-format on
    }
    void hexColour()
    {
        QFETCH(QColor, color);
        QFETCH(QString, hex);
        QCOMPARE(StyleListItem().convertRGBToHexColor(color), hex);
    }

    void painting_data()
    {
        QTest::addColumn<QColor>("text");
        QTest::addColumn<int>("current");
        QTest::addColumn<QColor>("highlight"); // at x >= 25; invalid: none
        // clang-format off
        QTest::newRow("dark text") << QColor(Qt::black) << 1 << QColor(Qt::lightGray);
        QTest::newRow("light text") << QColor(Qt::white) << 1 << QColor(Qt::darkBlue);
        QTest::newRow("mid grey counts as light") << QColor(128, 128, 128) << 1 << QColor(Qt::darkBlue);
        QTest::newRow("other row current") << QColor(Qt::black) << 0 << QColor();
        // clang-format on
    }
    void painting()
    {
        QFETCH(QColor, text);
        QFETCH(int, current);
        QFETCH(QColor, highlight);
        KtPsStyleList list;
        list.insertStyleData(0, "A", Qt::red, nullptr);
        list.insertStyleData(1, "B", QColor(0, 128, 255), nullptr);
        list.refreshStyleList();
        list.setCurrentRow(current);
        StyleListItem* item = rowWidget(list, 1);
        QPalette palette = item->palette();
        palette.setColor(QPalette::WindowText, text);
        item->setPalette(palette);
        QCOMPARE(item->isSelected(), current == 1);
        const QImage image = item->grab().toImage();
        QCOMPARE(QColor(image.pixel(16, 9)), QColor(0, 128, 255)); // swatch
        QVERIFY(QColor(image.pixel(5, 10)) != highlight);
        if (highlight.isValid()) {
            QCOMPARE(QColor(image.pixel(150, 2)), highlight);
            QCOMPARE(QColor(image.pixel(25, 19)), highlight);
        } else {
            QVERIFY(QColor(image.pixel(150, 2)) != QColor(Qt::lightGray));
        }
    }

    void freeStandingItem()
    {
        StyleListItem item;
        QCOMPARE(item.size(), QSize(185, 20));
        QVERIFY(!item.isSelected());
        const QImage image = item.grab().toImage();
        QCOMPARE(QColor(image.pixel(16, 9)), QColor(Qt::white));
        QCOMPARE(image.pixel(150, 2), image.pixel(3, 2));
    }

    void menuRequest_data()
    {
        QTest::addColumn<int>("row"); // under the cursor; -1: below the last row
        QTest::addColumn<bool>("onItem");
        QTest::newRow("on a row") << 1 << true;
        QTest::newRow("empty area") << -1 << false;
    }
    void menuRequest()
    {
        QFETCH(int, row);
        QFETCH(bool, onItem);
        KtPsStyleList list;
        list.resize(200, 200);
        for (int i = 0; i < 3; ++i)
            list.insertStyleData(i, QString::number(i), Qt::red, nullptr);
        list.refreshStyleList();
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        const QRect rowRect = list.visualItemRect(list.item(row < 0 ? 2 : row));
        const QPoint inViewport
            = row < 0 ? QPoint(rowRect.center().x(), rowRect.bottom() + 60) : rowRect.center();
        // The list reads the cursor, not the event's position.
        QCursor::setPos(list.viewport()->mapToGlobal(inViewport));
        QSignalSpy spy(&list, &KtPsStyleList::itemMenuRequest);
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(0, 0), list.mapToGlobal(QPoint(0, 0)));
        QApplication::sendEvent(list.viewport(), &event);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).toBool(), onItem);
    }
};

QTEST_MAIN(TestKtPsStyleList)
#include "tst_ktpsstylelist.moc"
