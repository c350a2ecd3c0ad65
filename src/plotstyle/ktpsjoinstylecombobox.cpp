#include "ktpsjoinstylecombobox.h"

#include "ktpsstylecombo_p.h"

namespace TORV_PLOT_SPECIALLY_SPCAE {

namespace {

// "Round" and "diamond" share their keys with the end and fill styles on purpose.
constexpr std::array<detail::StyleRow, 5> kJoinRows = {{
    {L"IDS_PLOTSTYLEOPTIONCMD_19", L"使用对象连接样式", KtPs::kUseObjectJoinStyle},
    {L"IDS_PLOTSTYLEOPTIONCMD_20", L"斜接", KtPs::kMiterJoin},
    {L"IDS_PLOTSTYLEOPTIONCMD_21", L"斜角", KtPs::kBevelJoin},
    {L"IDS_PLOTSTYLEOPTIONCMD_18", L"圆形", KtPs::kRoundJoin},
    {L"IDS_PLOTSTYLEOPTIONCMD_9", L"菱形", KtPs::kDiamondJoin},
}};

} // namespace

KtPsJoinStyleComboBox::KtPsJoinStyleComboBox(QWidget* parent)
    : QComboBox(parent)
{
    setIconSize(QSize(26, 13));
    Initialize();
}

KtPsJoinStyleComboBox::~KtPsJoinStyleComboBox() = default;

void KtPsJoinStyleComboBox::Initialize()
{
    detail::appendStyleRows<JoinStyleMap>(this, kJoinRows, QStringLiteral("plot/plotstyle_connectstyle.bmp"));
}

void KtPsJoinStyleComboBox::setCurrentJoinStyleIndex(KtPs::LineJoinStyle style)
{
    detail::selectByValue<JoinStyleMap>(this, style, int(kJoinRows.size()));
}

KtPs::LineJoinStyle KtPsJoinStyleComboBox::getCurrentJoinStyle(int row)
{
    return KtPs::LineJoinStyle(detail::recordValue<JoinStyleMap>(this, row));
}

} // namespace TORV_PLOT_SPECIALLY_SPCAE
