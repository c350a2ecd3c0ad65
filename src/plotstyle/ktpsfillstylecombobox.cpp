#include "ktpsfillstylecombobox.h"

#include "ktpsstylecombo_p.h"

namespace TORV_PLOT_SPECIALLY_SPCAE {

namespace {

constexpr std::array<detail::StyleRow, 10> kFillRows = {{
    {L"IDS_PLOTSTYLEOPTIONCMD_5", L"使用对象填充样式", KtPs::kUseObjectFillStyle},
    {L"IDS_PLOTSTYLEOPTIONCMD_6", L"实心", KtPs::kSolidFill},
    {L"IDS_PLOTSTYLEOPTIONCMD_7", L"棋盘形", KtPs::kCheckerboard},
    {L"IDS_PLOTSTYLEOPTIONCMD_8", L"交叉线", KtPs::kCrosshatch},
    {L"IDS_PLOTSTYLEOPTIONCMD_9", L"菱形", KtPs::kDiamonds},
    {L"IDS_PLOTSTYLEOPTIONCMD_10", L"水平线", KtPs::kHorizontalBars},
    {L"IDS_PLOTSTYLEOPTIONCMD_11", L"左斜线", KtPs::kSlantLeft},
    {L"IDS_PLOTSTYLEOPTIONCMD_12", L"右斜线", KtPs::kSlantRight},
    {L"IDS_PLOTSTYLEOPTIONCMD_13", L"方形点", KtPs::kSquareDots},
    {L"IDS_PLOTSTYLEOPTIONCMD_14", L"垂直线", KtPs::kVerticalBars},
}};

} // namespace

KtPsFillStyleComboBox::KtPsFillStyleComboBox(QWidget* parent)
    : QComboBox(parent)
{
    setIconSize(QSize(26, 13));
    Initialize();
}

KtPsFillStyleComboBox::~KtPsFillStyleComboBox() = default;

void KtPsFillStyleComboBox::Initialize()
{
    detail::appendStyleRows<FillStyleMap>(this, kFillRows, QStringLiteral("plot/plotstyle_fillstyle.bmp"));
}

void KtPsFillStyleComboBox::setCurrentFillStyleIndex(KtPs::FillStyle style)
{
    detail::selectByValue<FillStyleMap>(this, style, int(kFillRows.size()));
}

KtPs::FillStyle KtPsFillStyleComboBox::getCurrentFileStyle(int row)
{
    return KtPs::FillStyle(detail::recordValue<FillStyleMap>(this, row));
}

} // namespace TORV_PLOT_SPECIALLY_SPCAE
