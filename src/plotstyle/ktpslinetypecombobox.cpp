#include "ktpslinetypecombobox.h"

#include "ktpsstylecombo_p.h"
#include "ktresourcetext.h"

#include <QCoreApplication>
#include <QIcon>
#include <QLine>
#include <QPainter>
#include <QPixmap>
#include <QPoint>
#include <QVarLengthArray>
#include <QVector>

#include <cmath>

namespace TORV_PLOT_SPECIALLY_SPCAE {

namespace {

LineTypeMap lineType(const wchar_t* key, const wchar_t* defaultText, KtPs::LineType value)
{
    return LineTypeMap{ktutResourceText(key, defaultText), value};
}

} // namespace

// Filled by the library's static initialisation; "use object" comes first on purpose.
const LineTypeMap g_global_LineTypeName[32] = {
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_31", L"使用对象线型", KtPs::kUseObjectLinetype),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_0", L"实心", KtPs::kSolid),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_1", L"划", KtPs::kDashed),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_2", L"点", KtPs::kDotted),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_3", L"划点", KtPs::kDashDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_4", L"短划", KtPs::kShortDash),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_5", L"中划", KtPs::kMediumDash),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_6", L"长划", KtPs::kLongDash),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_7", L"短划 X2", KtPs::kShortDashX2),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_8", L"中划 X2", KtPs::kMediumDashX2),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_9", L"长划 X2", KtPs::kLongDashX2),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_10", L"中划 长划", KtPs::kMediumLongDash),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_11", L"中划 短划 短划", KtPs::kMediumDashShortDashShortDash),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_12", L"长划 短划", KtPs::kLongDashShortDash),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_13", L"长划 点 点", KtPs::kLongDashDotDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_14", L"长划 点", KtPs::kLongDashDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_15", L"中划 点 短划 点", KtPs::kMediumDashDotShortDashDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_16", L"疏点ISO 划", KtPs::kSparseDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_17", L"ISO 划", KtPs::kIsoDash),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_18", L"ISO 划 间距", KtPs::kIsoDashSpace),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_19", L"ISO 长划 点", KtPs::kIsoLongDashDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_20", L"ISO 长划 双点", KtPs::kIsoLongDashDoubleDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_21", L"ISO 长划 三点", KtPs::kIsoLongDashTripleDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_22", L"ISO 点", KtPs::kIsoDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_23", L"ISO 长划 短划", KtPs::kIsoLongDashShortDash),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_24", L"ISO 长划 双短划", KtPs::kIsoLongDashDoubleShortDash),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_25", L"ISO 划 点", KtPs::kIsoDashDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_26", L"ISO 双划 点", KtPs::kIsoDoubleDashDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_27", L"ISO 划 双点", KtPs::kIsoDashDoubleDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_28", L"ISO 双划 双点", KtPs::kIsoDoubleDashDoubleDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_29", L"ISO 划 三点", KtPs::kIsoDashTripleDot),
    lineType(L"IDS_PLOTSTYLE_LINETYPE_PROMPT_30", L"ISO 双划 三点", KtPs::kIsoDoubleDashTripleDot),
};

namespace {

// A piece of a dash pattern, relative to the start of its period: a dash from
// a to b, or a dot at a (b < 0).
struct Piece
{
    int a;
    int b;
};

struct Pattern
{
    int period;
    int count;
    Piece pieces[5];
};

constexpr int kDot = -1;

// The patterns by picture; several line types share one (see patternOf()).
constexpr Pattern kDash8 = {10, 1, {{0, 8}}};
constexpr Pattern kDot3 = {3, 1, {{0, kDot}}};
constexpr Pattern kDashDot13 = {13, 2, {{0, 8}, {10, kDot}}};
constexpr Pattern kShortDash6 = {6, 1, {{0, 4}}};
constexpr Pattern kLongDash20 = {20, 1, {{0, 16}}};
constexpr Pattern kMediumLong32 = {32, 2, {{0, 8}, {12, 28}}};
constexpr Pattern kFourDashes56 = {56, 4, {{0, 16}, {18, 26}, {28, 36}, {38, 54}}};
constexpr Pattern kLongShort28 = {28, 2, {{0, 16}, {18, 26}}};
constexpr Pattern kLongDotDot23 = {23, 3, {{0, 16}, {18, kDot}, {20, kDot}}};
constexpr Pattern kLongDot21 = {21, 2, {{0, 16}, {18, kDot}}};
constexpr Pattern kMediumDotShortDot22 = {22, 4, {{0, 8}, {10, kDot}, {13, 17}, {19, kDot}}};
constexpr Pattern kSparseDot5 = {5, 1, {{0, kDot}}};
constexpr Pattern kDashSpace16 = {16, 1, {{0, 8}}};
constexpr Pattern kLongThreeDots25 = {25, 4, {{0, 16}, {18, kDot}, {20, kDot}, {22, kDot}}};
constexpr Pattern kTwoDashesDot23 = {23, 3, {{0, 8}, {10, 18}, {20, kDot}}};
constexpr Pattern kDashTwoDots15 = {15, 3, {{0, 8}, {10, kDot}, {12, kDot}}};
constexpr Pattern kTwoDashesTwoDots25 = {25, 4, {{0, 8}, {10, 18}, {20, kDot}, {22, kDot}}};
constexpr Pattern kDashThreeDots17 = {17, 4, {{0, 8}, {10, kDot}, {12, kDot}, {14, kDot}}};
constexpr Pattern kTwoDashesThreeDots27 = {27, 5, {{0, 8}, {10, 18}, {20, kDot}, {22, kDot}, {24, kDot}}};

// The picture of each value 1 .. 30 (0 is a plain line, 31 has none). The
// sharing is deliberate: look-alike line types get one picture.
const Pattern* const kPatternOf[31] = {
    nullptr, // 0: solid, drawn as one line
    &kDash8, // 1
    &kDot3, // 2
    &kDashDot13, // 3
    &kShortDash6, // 4
    &kDash8, // 5
    &kLongDash20, // 6
    &kDash8, // 7
    &kLongDash20, // 8
    &kLongDash20, // 9
    &kMediumLong32, // 10
    &kFourDashes56, // 11
    &kLongShort28, // 12
    &kLongDotDot23, // 13
    &kLongDot21, // 14
    &kMediumDotShortDot22, // 15
    &kSparseDot5, // 16
    &kDash8, // 17
    &kDashSpace16, // 18
    &kLongDot21, // 19
    &kLongDotDot23, // 20
    &kLongThreeDots25, // 21
    &kDot3, // 22
    &kLongShort28, // 23
    &kFourDashes56, // 24
    &kDashDot13, // 25
    &kTwoDashesDot23, // 26
    &kDashTwoDots15, // 27
    &kTwoDashesTwoDots25, // 28
    &kDashThreeDots17, // 29
    &kTwoDashesThreeDots27, // 30
};

} // namespace

namespace {

// The row pictures depend on the value alone, so they are drawn by the first
// combo of the application and shared by every later one (QIcon is
// implicitly shared). Drawing them took three quarters of building a combo.
// They go with the application object, which owns the pixmaps' platform.
const QVector<QIcon>& rowIcons(KtPsLineTypeComboBox* combo)
{
    static QVector<QIcon> icons;
    if (icons.isEmpty()) {
        icons.reserve(31);
        for (int i = 0; i < 31; ++i) {
            QPixmap pixmap(80, 20);
            pixmap.fill(Qt::transparent);
            combo->createLineType(pixmap, i, 80, 20);
            icons.append(QIcon(pixmap));
        }
        qAddPostRoutine([] { icons.clear(); });
    }
    return icons;
}

} // namespace

KtPsLineTypeComboBox::KtPsLineTypeComboBox(QWidget* parent)
    : QComboBox(parent)
{
    setIconSize(QSize(80, 20));
    addItem(QIcon(), g_global_LineTypeName[0].name, QVariant::fromValue(g_global_LineTypeName[0]));
    // Row i + 1 carries value i, so every picture matches its value.
    const QVector<QIcon>& icons = rowIcons(this);
    for (int i = 0; i < 31; ++i) {
        const LineTypeMap& row = g_global_LineTypeName[i + 1];
        addItem(icons.at(i), row.name, QVariant::fromValue(row));
    }
}

KtPsLineTypeComboBox::~KtPsLineTypeComboBox() = default;

void KtPsLineTypeComboBox::setCurrentLineTypeIndex(KtPs::LineType type)
{
    detail::selectByValue<LineTypeMap>(this, type, 32);
}

KtPs::LineType KtPsLineTypeComboBox::getCurrentLineType(int row)
{
    return KtPs::LineType(detail::recordValue<LineTypeMap>(this, row));
}

void KtPsLineTypeComboBox::createLineType(QPixmap& pixmap, int lineType, int width, int height)
{
    // The test is unsigned on purpose: negative values draw nothing, like 31.
    if (unsigned(lineType) > 30u)
        return;

    // The painter's default pen is kept for every picture: no pen, colour or
    // antialiasing is set here.
    QPainter painter(&pixmap);
    const int y = height / 2;
    const Pattern* pattern = kPatternOf[lineType];
    if (!pattern) {
        painter.drawLine(QPoint(0, y), QPoint(width, y));
        return;
    }
    const int periods = int(std::ceil(double(width) / double(pattern->period)));
    if (periods < 1)
        return;
    // Every dash and dot of every period goes to the painter in one call each:
    // the pixels are those of drawing them one by one (one pen, one colour),
    // without the per-call cost that dominated building a combo.
    QVarLengthArray<QLine, 64> lines;
    QVarLengthArray<QPoint, 64> points;
    for (int n = 0; n < periods; ++n) {
        const int x = n * pattern->period;
        for (int i = 0; i < pattern->count; ++i) {
            const Piece& piece = pattern->pieces[i];
            if (piece.b == kDot)
                points.append(QPoint(x + piece.a, y));
            else
                lines.append(QLine(x + piece.a, y, x + piece.b, y));
        }
    }
    if (!lines.isEmpty())
        painter.drawLines(lines.constData(), lines.size());
    if (!points.isEmpty())
        painter.drawPoints(points.constData(), points.size());
}

} // namespace TORV_PLOT_SPECIALLY_SPCAE
