// Tests of KtPsJoinStyleComboBox: the rows of each join style, selecting by value and reading back,
// English texts, a missing bitmap and a second Initialize (stylecombochecks.h).

#include "stylecombochecks.h"

#include <KtPsJoinStyleComboBox>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

class TestKtPsJoinStyleComboBox : public QObject
{
    Q_OBJECT

    const StyleComboChecks<KtPsJoinStyleComboBox> join{{5, 0, 1, 2, 3},
        {"使用对象连接样式", "斜接", "斜角", "圆形", "菱形"},
        {"Use object join style", "Miter", "Bevel", "Round", "Diamond"}, "plot/plotstyle_connectstyle.bmp",
        [](KtPsJoinStyleComboBox& c, int v) { c.setCurrentJoinStyleIndex(KtPs::LineJoinStyle(v)); },
        [](KtPsJoinStyleComboBox& c, int row) { return int(c.getCurrentJoinStyle(row)); },
        {{5, 0}, {0, 1}, {3, 4}, {4, 2}}};

private Q_SLOTS:
    void joinStyles() { join.run(); }
};

QTEST_MAIN(TestKtPsJoinStyleComboBox)
#include "tst_ktpsjoinstylecombobox.moc"
