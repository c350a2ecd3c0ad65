#include "ktpsextremepointstylecombobox.h"

#include "ktpsstylecombo_p.h"

namespace TORV_PLOT_SPECIALLY_SPCAE {

namespace {

// "Round" and "diamond" share their keys with the join and fill styles on purpose.
constexpr std::array<detail::StyleRow, 5> kEndRows = {{
    {L"IDS_PLOTSTYLEOPTIONCMD_15", L"使用对象端点样式", KtPs::kUseObjectEndStyle},
    {L"IDS_PLOTSTYLEOPTIONCMD_16", L"柄型", KtPs::kButtCap},
    {L"IDS_PLOTSTYLEOPTIONCMD_17", L"方形", KtPs::kSquareCap},
    {L"IDS_PLOTSTYLEOPTIONCMD_18", L"圆形", KtPs::kRoundCap},
    {L"IDS_PLOTSTYLEOPTIONCMD_9", L"菱形", KtPs::kDiamondCap},
}};

} // namespace

KtPsExtremePointStyleComboBox::KtPsExtremePointStyleComboBox(QWidget* parent)
    : QComboBox(parent)
{
    setIconSize(QSize(26, 13));
    Initialize();
}

KtPsExtremePointStyleComboBox::~KtPsExtremePointStyleComboBox() = default;

void KtPsExtremePointStyleComboBox::Initialize()
{
    detail::appendStyleRows<EndPointStyleMap>(this, kEndRows, QStringLiteral("plot/plotstyle_basestyle.bmp"));
}

void KtPsExtremePointStyleComboBox::setCurrentExtremePointStyleIndex(KtPs::LineEndStyle style)
{
    detail::selectByValue<EndPointStyleMap>(this, style, int(kEndRows.size()));
}

KtPs::LineEndStyle KtPsExtremePointStyleComboBox::getExtremePointStyle(int row)
{
    return KtPs::LineEndStyle(detail::recordValue<EndPointStyleMap>(this, row));
}

} // namespace TORV_PLOT_SPECIALLY_SPCAE
