// Tests of KtPsFillStyleComboBox: the rows of each fill style, selecting by value and reading back,
// English texts, a missing bitmap and a second Initialize (stylecombochecks.h).

#include "stylecombochecks.h"

#include <KtPsFillStyleComboBox>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

class TestKtPsFillStyleComboBox : public QObject
{
    Q_OBJECT

    const StyleComboChecks<KtPsFillStyleComboBox> fill{{73, 64, 65, 66, 67, 68, 69, 70, 71, 72},
        {"使用对象填充样式", "实心", "棋盘形", "交叉线", "菱形", "水平线", "左斜线", "右斜线", "方形点",
            "垂直线"},
        {"Use object fill style", "Solid", "Checkerboard", "Crosshatch", "Diamond", "Horizontal Bars",
            "Slant Left", "Slant Right", "Square Dots", "Vertical Bars"},
        "plot/plotstyle_fillstyle.bmp",
        [](KtPsFillStyleComboBox& c, int v) { c.setCurrentFillStyleIndex(KtPs::FillStyle(v)); },
        [](KtPsFillStyleComboBox& c, int row) { return int(c.getCurrentFileStyle(row)); },
        {{73, 0}, {64, 1}, {72, 9}, {0, 2}, {74, 2}}};

private Q_SLOTS:
    void fillStyles() { fill.run(); }
};

QTEST_MAIN(TestKtPsFillStyleComboBox)
#include "tst_ktpsfillstylecombobox.moc"
