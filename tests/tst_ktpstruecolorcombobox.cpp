// Tests of KtPsTrueColorComboBox: default entries, special colours and their
// names, the current entry's record, guarded selection and the painted face.

#include "plotstyletestsupport.h"

#include <KtPsTrueColorComboBox>
#include <QtTest>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

static TrueColorData record(const QComboBox& combo, int row)
{
    return combo.itemData(row).value<TrueColorData>();
}

class TestKtPsTrueColorComboBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void entries()
    {
        KtPsTrueColorComboBox combo;
        const QVector<int> kinds = {2, 0, 0, 0, 0, 0, 0, 0, 1};
        const QColor colours[] = {
            Qt::black, Qt::red, Qt::yellow, Qt::green, Qt::cyan, Qt::blue, Qt::magenta, Qt::black, Qt::black};
        QCOMPARE(combo.count(), 9);
        for (int row = 0; row < 9; ++row) {
            const TrueColorData data = record(combo, row);
            QVERIFY(data.name == combo.itemText(row) && data.kind == kinds[row] && data.index == -1);
            QCOMPARE(data.color, colours[row]);
        }
        QCOMPARE(iconImage(combo, 6, QSize(12, 12)).pixel(6, 6), QColor(Qt::magenta).rgb());
        QVERIFY(combo.itemIcon(0).isNull() && !combo.itemIcon(8).isNull() && combo.getLastSelIndex() == 0);
        QVERIFY(combo.isGlobalColor(Qt::red) && !combo.isGlobalColor(QColor(255, 0, 0, 128)));
        // Row 0 and the last row hold black too, yet only row 7 counts.
        QCOMPARE(combo.isColorExist(Qt::black), 7);
        QVERIFY(combo.isColorExist(QColor(1, 2, 3)) == -1 && combo.isColorExist(QColor()) == -1);

        // The face shows the swatch of a colour entry; "choose colour" paints nothing over the erased face.
        combo.resize(200, 24);
        combo.setCurrentIndex(1);
        QCOMPARE(QColor(combo.grab().toImage().pixel(12, 10)), QColor(Qt::red));
        combo.setCurrentIndex(8);
        const QImage chooser = combo.grab().toImage();
        QCOMPARE(chooser.pixel(12, 10), chooser.pixel(2, 3));

        // The current record: row -> kind and colour afterwards; the name is copied only from a colour row.
        const std::tuple<int, int, QColor> cases[] = {{0, 2, QColor(9, 9, 9)}, {3, 0, QColor(Qt::green)},
            {8, 7, QColor(9, 9, 9)}, {-1, 7, QColor(9, 9, 9)}};
        for (const auto& [row, kind, color] : cases) {
            combo.QComboBox::setCurrentIndex(row);
            TrueColorData data{QColor(9, 9, 9), "before", 7, 4};
            combo.getCurrentColorData(data);
            QVERIFY2(data.kind == kind && data.color == color, qPrintable(QString::number(row)));
            QCOMPARE(data.name == "before", row != 3);
        }
        // Selection is guarded: indices outside the rows change nothing.
        combo.setCurrentIndex(4);
        for (int index : {-1, 9})
            combo.setCurrentIndex(index);
        QVERIFY(combo.currentIndex() == 4 && combo.getLastSelIndex() == 4);

        // Special colours go in before "choose colour".
        combo.showSpecialColor(QColor(1, 2, 3), false, 0);
        QVERIFY(combo.count() == 10 && combo.itemText(8) == QStringLiteral("1, 2, 3"));
        QVERIFY(record(combo, 8).kind == 3 && record(combo, 9).kind == 1 && combo.getLastSelIndex() == 8);
        combo.setCurrentIndex(2);
        combo.showSpecialColor(QColor(1, 2, 3), true, 5); // already listed: selected, not added again
        QVERIFY(combo.count() == 10 && combo.currentIndex() == 8);
        combo.showSpecialColor(QColor(9, 9, 9), true, 30);
        QCOMPARE(combo.itemText(9), QStringLiteral("颜色 30"));
        QVERIFY(record(combo, 9).index == 30 && combo.currentIndex() == 9);
        combo.showSpecialColor(Qt::blue, true, 5);
        QVERIFY(combo.currentIndex() == 5 && combo.count() == 11);

        // A translation of the index name that would read arguments that are not there falls back to
        // the built-in text. format -> name
        KtUiCatalogueLanguageSvr language;
        QVERIFY(language.registerWithHost());
        const std::pair<QString, QString> formats[]
            = {{"No.%03d (100%%)", "No.007 (100%)"}, {"%s", "颜色 7"}, {"%d-%d", "颜色 7"}};
        for (int i = 0; i < 3; ++i) {
            language.insert("IDS_PROPERTIES_292", formats[i].first);
            combo.showSpecialColor(QColor(7, 7, i), true, 7);
            QCOMPARE(combo.itemText(combo.count() - 2), formats[i].second);
        }

        // Only rows between the first and the last count, and only with 3 rows or more.
        combo.clear();
        combo.addColorByColor(Qt::red, QString());
        combo.addColorByColor(Qt::green, QString());
        QCOMPARE(combo.itemText(0), QStringLiteral("255, 0, 0"));
        QCOMPARE(combo.isColorExist(Qt::green), -1); // fewer than 3 entries
        combo.addNormalOption("x");
        QCOMPARE(combo.isColorExist(Qt::green), 1);
    }
};

QTEST_MAIN(TestKtPsTrueColorComboBox)
#include "tst_ktpstruecolorcombobox.moc"
