// Tests of KtPsTrueColorComboBox: default entries, special colours, the
// current entry's record, guarded selection and the painted face.

#include "plotstyletestsupport.h"

#include <KtPsTrueColorComboBox>
#include <QSignalSpy>
#include <QtTest>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

namespace {

TrueColorData record(const QComboBox& combo, int row)
{
    return combo.itemData(row).value<TrueColorData>();
}

} // namespace

class TestKtPsTrueColorComboBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void defaults()
    {
        KtPsTrueColorComboBox combo;
        const QStringList texts = {"使用对象颜色", "红", "黄", "绿", "青", "蓝", "洋红", "黑", "选择颜色..."};
        const QVector<int> kinds = {2, 0, 0, 0, 0, 0, 0, 0, 1};
        QCOMPARE(combo.count(), 9);
        for (int row = 0; row < 9; ++row) {
            QCOMPARE(combo.itemText(row), texts[row]);
            QCOMPARE(record(combo, row).name, texts[row]);
            QCOMPARE(record(combo, row).kind, kinds[row]);
            QCOMPARE(record(combo, row).index, -1);
        }
        const QColor colours[] = {Qt::red, Qt::yellow, Qt::green, Qt::cyan, Qt::blue, Qt::magenta, Qt::black};
        for (int i = 0; i < 7; ++i) {
            QCOMPARE(g_global_color[i], colours[i]);
            QCOMPARE(record(combo, i + 1).color, colours[i]);
            QCOMPARE(iconImage(combo, i + 1, QSize(12, 12)).pixel(6, 6), colours[i].rgb());
        }
        QCOMPARE(record(combo, 0).color, QColor(Qt::black));
        QVERIFY(combo.itemIcon(0).isNull() && !combo.itemIcon(8).isNull());
        QCOMPARE(combo.getLastSelIndex(), 0);
        QCOMPARE(
            QMetaType::typeName(qMetaTypeId<TrueColorData>()), "TORV_PLOT_SPECIALLY_SPCAE::TrueColorData");
        const TrueColorData fresh;
        QVERIFY(!fresh.color.isValid() && fresh.color.alpha() == 255 && fresh.kind == 0 && fresh.index == -1);
        QVERIFY(
            combo.styleSheet().startsWith("QComboBox {combobox-popup: 0; background: rgb(225, 225, 225); "));
        QVERIFY(combo.styleSheet().endsWith("item:hover { background: rgb(0, 120, 215); color: white; } "));

        EnglishTexts english;
        KtPsTrueColorComboBox translated;
        QCOMPARE(translated.itemText(6), QStringLiteral("Magenta"));
        QCOMPARE(translated.itemText(8), QStringLiteral("Select Color..."));
    }

    void colourLookups_data()
    {
        QTest::addColumn<QColor>("color");
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("global");
        // clang-format off
        QTest::newRow("red") << QColor(255, 0, 0) << 1 << true;
        QTest::newRow("black") << QColor(0, 0, 0) << 7 << true;
        QTest::newRow("1, 2, 3") << QColor(1, 2, 3) << -1 << false;
        QTest::newRow("half-transparent red") << QColor(255, 0, 0, 128) << -1 << false;
        QTest::newRow("invalid") << QColor() << -1 << false;
        // clang-format on
    }
    void colourLookups()
    {
        QFETCH(QColor, color);
        QFETCH(int, row);
        QFETCH(bool, global);
        KtPsTrueColorComboBox combo;
        QCOMPARE(combo.isColorExist(color), row);
        QCOMPARE(combo.isGlobalColor(color), global);
    }

    void firstAndLastRowsNeverMatch()
    {
        KtPsTrueColorComboBox combo;
        // Row 0 and the last row hold black too, yet only row 7 counts.
        QCOMPARE(combo.isColorExist(Qt::black), 7);
        combo.clear();
        combo.addColorByColor(Qt::red, QString());
        combo.addColorByColor(Qt::green, QString());
        QCOMPARE(combo.itemText(0), QStringLiteral("255, 0, 0"));
        QCOMPARE(combo.isColorExist(Qt::red), -1); // fewer than 3 entries
        combo.addNormalOption("x");
        QCOMPARE(combo.isColorExist(Qt::green), 1);
        QCOMPARE(combo.isColorExist(Qt::red), -1);
    }

    void specialColours()
    {
        KtPsTrueColorComboBox combo;
        combo.showSpecialColor(QColor(1, 2, 3), false, 0);
        QCOMPARE(combo.count(), 10);
        QCOMPARE(combo.itemText(8), QStringLiteral("1, 2, 3"));
        QCOMPARE(record(combo, 8).kind, 3);
        QCOMPARE(record(combo, 9).kind, 1);
        QCOMPARE(combo.currentIndex(), 8);
        QCOMPARE(combo.getLastSelIndex(), 8);
        combo.setCurrentIndex(2);
        combo.showSpecialColor(QColor(1, 2, 3), true, 5);
        QCOMPARE(combo.count(), 10);
        QCOMPARE(combo.currentIndex(), 8);

        combo.showSpecialColor(QColor(9, 9, 9), true, 30);
        QCOMPARE(combo.itemText(9), QStringLiteral("颜色 30"));
        QCOMPARE(record(combo, 9).index, 30);
        QCOMPARE(combo.currentIndex(), 9);
        combo.showSpecialColor(Qt::blue, true, 5);
        QCOMPARE(combo.currentIndex(), 5);
        QCOMPARE(combo.count(), 11);

        EnglishTexts english;
        combo.showSpecialColor(QColor(7, 7, 7), true, 250);
        QCOMPARE(combo.itemText(10), QStringLiteral("Color 250"));
    }

    void hostileIndexFormat_data()
    {
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("name");
        // clang-format off
        QTest::newRow("flags and width") << "No.%03d (100%%)" << "No.007 (100%)";
        QTest::newRow("a string conversion") << "%s" << "颜色 7";
        QTest::newRow("two conversions") << "%d-%d" << "颜色 7";
        QTest::newRow("no conversion") << "Colour" << "颜色 7";
        QTest::newRow("a long") << "%ld" << "颜色 7";
        // clang-format on
    }
    void hostileIndexFormat()
    {
        QFETCH(QString, format);
        QFETCH(QString, name);
        KtUiCatalogueLanguageSvr language;
        language.insert("IDS_PROPERTIES_292", format);
        QVERIFY(language.registerWithHost());
        KtPsTrueColorComboBox combo;
        combo.showSpecialColor(QColor(7, 7, 7), true, 7);
        QCOMPARE(combo.itemText(8), name);
        language.unregisterFromHost();
    }

    void currentColorData_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("kind"); // of the record afterwards
        QTest::addColumn<QColor>("color");
        // clang-format off
        QTest::newRow("use object: kind only") << 0 << 2 << QColor(9, 9, 9);
        QTest::newRow("colour row copied") << 3 << 0 << QColor(Qt::green);
        QTest::newRow("choose row: untouched") << 8 << 7 << QColor(9, 9, 9);
        QTest::newRow("no current row: untouched") << -1 << 7 << QColor(9, 9, 9);
        // clang-format on
    }
    void currentColorData()
    {
        QFETCH(int, row);
        QFETCH(int, kind);
        QFETCH(QColor, color);
        KtPsTrueColorComboBox combo;
        combo.QComboBox::setCurrentIndex(row);
        TrueColorData data{QColor(9, 9, 9), "before", 7, 4};
        combo.getCurrentColorData(data);
        QCOMPARE(data.kind, kind);
        QCOMPARE(data.color, color);
        QCOMPARE(data.name == "before", row != 3);
    }

    void guardedSelection_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("current");
        QTest::addColumn<int>("last");
        // clang-format off
        QTest::newRow("a row") << 4 << 4 << 4;
        QTest::newRow("-1") << -1 << 2 << 2;
        QTest::newRow("count()") << 9 << 2 << 2;
        // clang-format on
    }
    void guardedSelection()
    {
        QFETCH(int, index);
        QFETCH(int, current);
        QFETCH(int, last);
        KtPsTrueColorComboBox combo;
        combo.setCurrentIndex(2);
        combo.setCurrentIndex(index);
        QCOMPARE(combo.currentIndex(), current);
        QCOMPARE(combo.getLastSelIndex(), last);
    }

    void paintedFace()
    {
        KtPsTrueColorComboBox combo;
        combo.resize(200, 24);
        combo.setCurrentIndex(1);
        QImage face = combo.grab().toImage();
        QCOMPARE(QColor(face.pixel(12, 10)), QColor(Qt::red)); // inside the 12 x 12 swatch
        QCOMPARE(QColor(face.pixel(7, 5)), QColor(Qt::black)); // its outline
        combo.showSpecialColor(QColor(10, 200, 30), false, 0);
        face = combo.grab().toImage();
        QCOMPARE(QColor(face.pixel(12, 10)), QColor(10, 200, 30));
        // "Choose colour" paints nothing over the erased face; "use object" writes its name from x = 4.
        combo.setCurrentIndex(combo.count() - 1);
        face = combo.grab().toImage();
        QCOMPARE(face.pixel(12, 10), face.pixel(2, 3));
        combo.setCurrentIndex(0);
        face = combo.grab().toImage();
        int dark = 0;
        for (int y = 3; y < 17; ++y)
            for (int x = 4; x < 60; ++x)
                dark += qGray(face.pixel(x, y)) < 100 ? 1 : 0;
        QVERIFY(dark > 10);
        QVERIFY(QColor(face.pixel(12, 10)) != QColor(Qt::red));
    }
};

QTEST_MAIN(TestKtPsTrueColorComboBox)
#include "tst_ktpstruecolorcombobox.moc"
