// Tests of KtPsJoinStyleComboBox (the checks shared with the fill and end combos).

#include "stylecombochecks.h"

#include <KtPsJoinStyleComboBox>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

class TestKtPsJoinStyleComboBox : public QObject
{
    Q_OBJECT

    const StyleComboChecks<KtPsJoinStyleComboBox> checks{{5, 0, 1, 2, 3},
        {"使用对象连接样式", "斜接", "斜角", "圆形", "菱形"},
        {"Use object join style", "Miter", "Bevel", "Round", "Diamond"}, "plot/plotstyle_connectstyle.bmp",
        [](KtPsJoinStyleComboBox& c, int v) { c.setCurrentJoinStyleIndex(KtPs::LineJoinStyle(v)); },
        [](KtPsJoinStyleComboBox& c, int row) { return int(c.getCurrentJoinStyle(row)); },
        {{5, 0}, {0, 1}, {3, 4}, {4, 2}}};

private Q_SLOTS:
    void rows() { checks.rows(); }
    void english() { checks.english(); }
    void selectByValue() { checks.selectByValue(); }
    void missingBitmap() { checks.missingBitmap(); }
    void initializeTwice() { checks.initializeTwice(); }
};

QTEST_MAIN(TestKtPsJoinStyleComboBox)
#include "tst_ktpsjoinstylecombobox.moc"
