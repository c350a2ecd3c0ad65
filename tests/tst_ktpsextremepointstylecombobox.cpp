// Tests of KtPsExtremePointStyleComboBox: the rows of each line-end style, selecting by value and reading
// back, English texts, a missing bitmap and a second Initialize (stylecombochecks.h).

#include "stylecombochecks.h"

#include <KtPsExtremePointStyleComboBox>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

class TestKtPsExtremePointStyleComboBox : public QObject
{
    Q_OBJECT

    const StyleComboChecks<KtPsExtremePointStyleComboBox> end{{4, 0, 1, 2, 3},
        {"使用对象端点样式", "柄型", "方形", "圆形", "菱形"},
        {"Use object end style", "Butt", "Square", "Round", "Diamond"}, "plot/plotstyle_basestyle.bmp",
        [](KtPsExtremePointStyleComboBox& c, int v) {
            c.setCurrentExtremePointStyleIndex(KtPs::LineEndStyle(v));
        },
        [](KtPsExtremePointStyleComboBox& c, int row) { return int(c.getExtremePointStyle(row)); },
        {{4, 0}, {0, 1}, {3, 4}, {5, 2}, {-1, 2}}};

private Q_SLOTS:
    void endStyles() { end.run(); }
};

QTEST_MAIN(TestKtPsExtremePointStyleComboBox)
#include "tst_ktpsextremepointstylecombobox.moc"
