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
        names << record.name + (record.modified ? "*" : "");
    return names;
}

} // namespace

class TestKtPsStyleList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void records()
    {
        CJxPlotStyle a, b, c;
        KtPsStyleList list;
        list.insertStyleData(0, "A", Qt::red, &a);
        list.insertStyleData(1, "B", Qt::green, &b);
        for (int index : {3, -1})
            list.insertStyleData(index, "ignored", Qt::blue, &c);
        list.refreshStyleList();
        list.setCurrentRow(1);

        QSignalSpy rowChanged(&list, &QListWidget::currentRowChanged);
        QSignalSpy selection(&list, &QListWidget::itemSelectionChanged);
        list.insertStyleData(0, "C", Qt::blue, &c);
        QCOMPARE(list.count(), 2); // the rows wait for the rebuild
        list.refreshStyleList();
        QVERIFY(rowChanged.count() + selection.count() == 0 && list.count() == 3);

        list.modifyStyleData(2, &a); // marks only: the stored object stays
        QCOMPARE(list.getStyleDataList().at(2).style, &b);
        for (int index : {-1, 3, 1})
            list.renameStyle(index, "Z");
        QCOMPARE(recordNames(list), QStringList({"C", "Z*", "B*"}));
        for (int index : {3, -1, 0})
            list.removeStyleData(index);
        QCOMPARE(recordNames(list), QStringList({"Z*", "B*"}));
        list.clearStyleDataList();
        list.refreshStyleList();
        QVERIFY(list.getStyleDataList().isEmpty() && list.count() == 0);
        // Alpha is dropped; each channel takes two digits.
        QCOMPARE(StyleListItem().convertRGBToHexColor(QColor(10, 11, 12, 4)), QStringLiteral("#0a0b0c"));

        // getStyleData's guard stops at 254 whatever the number of records.
        std::vector<CJxPlotStyle> styles(300);
        for (int i = 0; i < 300; ++i)
            list.insertStyleData(i, QString::number(i), Qt::red, &styles[i]);
        for (int index : {254, 255, -1, 300}) {
            CJxPlotStyle sentinel, *style = &sentinel;
            list.getStyleData(index, style);
            QCOMPARE(style, index == 254 ? &styles[index] : &sentinel);
        }
    }

    void paintingAndRightClick()
    {
        KtPsStyleList list;
        list.resize(200, 200);
        list.insertStyleData(0, "A", Qt::red, nullptr);
        list.insertStyleData(1, "B", QColor(0, 128, 255), nullptr);
        list.insertStyleData(2, "C", Qt::red, nullptr);
        list.refreshStyleList();
        // The highlight (at x >= 25) of a current row follows the text: light grey behind dark text,
        // dark blue behind light text (mid grey counts as light); a row that is not current has none.
        const std::tuple<QColor, int, QColor> cases[] = {{Qt::black, 1, Qt::lightGray},
            {QColor(128, 128, 128), 1, Qt::darkBlue}, {Qt::black, 0, QColor()}}; // text, current, highlight
        auto* item = qobject_cast<StyleListItem*>(list.itemWidget(list.item(1)));
        for (const auto& [text, current, highlight] : cases) {
            list.setCurrentRow(current);
            QPalette palette = item->palette();
            palette.setColor(QPalette::WindowText, text);
            item->setPalette(palette);
            QCOMPARE(item->isSelected(), current == 1);
            const QImage image = item->grab().toImage();
            QCOMPARE(QColor(image.pixel(16, 9)), QColor(0, 128, 255)); // swatch
            QVERIFY(QColor(image.pixel(5, 10)) != highlight);
            for (const QPoint& at : {QPoint(150, 2), QPoint(25, 19)})
                QCOMPARE(QColor(image.pixel(at)) == highlight, highlight.isValid());
        }
        const QImage freeStanding = StyleListItem().grab().toImage();
        QCOMPARE(QColor(freeStanding.pixel(16, 9)), QColor(Qt::white));
        QCOMPARE(freeStanding.pixel(150, 2), freeStanding.pixel(3, 2));

        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        QSignalSpy spy(&list, &KtPsStyleList::itemMenuRequest);
        const QRect last = list.visualItemRect(list.item(2));
        // The list reads the cursor, not the event's position (which stays at 0, 0 here).
        for (const QPoint& at : {list.visualItemRect(list.item(1)).center(), last.center() + QPoint(0, 60)}) {
            QCursor::setPos(list.viewport()->mapToGlobal(at));
            QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(0, 0), list.mapToGlobal(QPoint(0, 0)));
            QApplication::sendEvent(list.viewport(), &event);
        }
        QVERIFY(spy.count() == 2 && spy.at(0).at(0).toBool() && !spy.at(1).at(0).toBool());
    }
};

QTEST_MAIN(TestKtPsStyleList)
#include "tst_ktpsstylelist.moc"
