// Tests of KtPsExtremePointStyleComboBox (the checks shared with the fill and join combos).

#include "stylecombochecks.h"

#include <KtPsExtremePointStyleComboBox>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

class TestKtPsExtremePointStyleComboBox : public QObject
{
    Q_OBJECT

    const StyleComboChecks<KtPsExtremePointStyleComboBox> checks{{4, 0, 1, 2, 3},
        {"使用对象端点样式", "柄型", "方形", "圆形", "菱形"},
        {"Use object end style", "Butt", "Square", "Round", "Diamond"}, "plot/plotstyle_basestyle.bmp",
        [](KtPsExtremePointStyleComboBox& c, int v) {
            c.setCurrentExtremePointStyleIndex(KtPs::LineEndStyle(v));
        },
        [](KtPsExtremePointStyleComboBox& c, int row) { return int(c.getExtremePointStyle(row)); }};

private Q_SLOTS:
    void rows() { checks.rows(); }
    void english() { checks.english(); }
    void selectByValue_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("row");
        // clang-format off
        QTest::newRow("use object is 4") << 4 << 0;
        QTest::newRow("butt") << 0 << 1;
        QTest::newRow("diamond") << 3 << 4;
        QTest::newRow("5 is not an end: unchanged") << 5 << 2;
        QTest::newRow("negative: unchanged") << -1 << 2;
        // clang-format on
    }
    void selectByValue()
    {
        QFETCH(int, value);
        QFETCH(int, row);
        checks.selectByValue(value, row);
    }
    void missingBitmap() { checks.missingBitmap(); }
    void initializeTwice() { checks.initializeTwice(); }
};

QTEST_MAIN(TestKtPsExtremePointStyleComboBox)
#include "tst_ktpsextremepointstylecombobox.moc"
