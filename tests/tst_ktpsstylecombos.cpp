// Tests of the fill, join and line-end combo boxes: one design, so the same
// checks run on each, given its table and its select and read calls.

#include "stylecombochecks.h"

#include <KtPsExtremePointStyleComboBox>
#include <KtPsFillStyleComboBox>
#include <KtPsJoinStyleComboBox>

using namespace TORV_PLOT_SPECIALLY_SPCAE;

class TestKtPsStyleCombos : public QObject
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
    const StyleComboChecks<KtPsJoinStyleComboBox> join{{5, 0, 1, 2, 3},
        {"使用对象连接样式", "斜接", "斜角", "圆形", "菱形"},
        {"Use object join style", "Miter", "Bevel", "Round", "Diamond"}, "plot/plotstyle_connectstyle.bmp",
        [](KtPsJoinStyleComboBox& c, int v) { c.setCurrentJoinStyleIndex(KtPs::LineJoinStyle(v)); },
        [](KtPsJoinStyleComboBox& c, int row) { return int(c.getCurrentJoinStyle(row)); },
        {{5, 0}, {0, 1}, {3, 4}, {4, 2}}};
    const StyleComboChecks<KtPsExtremePointStyleComboBox> end{{4, 0, 1, 2, 3},
        {"使用对象端点样式", "柄型", "方形", "圆形", "菱形"},
        {"Use object end style", "Butt", "Square", "Round", "Diamond"}, "plot/plotstyle_basestyle.bmp",
        [](KtPsExtremePointStyleComboBox& c, int v) {
            c.setCurrentExtremePointStyleIndex(KtPs::LineEndStyle(v));
        },
        [](KtPsExtremePointStyleComboBox& c, int row) { return int(c.getExtremePointStyle(row)); },
        {{4, 0}, {0, 1}, {3, 4}, {5, 2}, {-1, 2}}};

private Q_SLOTS:
    void fillStyles() { fill.run(); }
    void joinStyles() { join.run(); }
    void endStyles() { end.run(); }
};

QTEST_MAIN(TestKtPsStyleCombos)
#include "tst_ktpsstylecombos.moc"
