#include "cjxplotstyle.h"

KT_DEFINE_RX_MEMBERS(CJxPlotStyle, CJxRxObject)

CJxPlotStyle::CJxPlotStyle()
    : m_name(L"Style")
{ }

CJxPlotStyle::CJxPlotStyle(const KtString& name)
    : m_name(name)
{ }

CJxPlotStyle::~CJxPlotStyle() = default;

KtString CJxPlotStyle::name() const
{
    return m_name;
}

void CJxPlotStyle::setName(const KtString& name)
{
    m_name = name;
}

KtString CJxPlotStyle::description() const
{
    return m_description;
}

void CJxPlotStyle::setDescription(const KtString& description)
{
    m_description = description;
}

QColor CJxPlotStyle::color() const
{
    return m_color;
}

void CJxPlotStyle::setColor(const QColor& color)
{
    m_color = color;
}

KtPs::LineType CJxPlotStyle::lineType() const
{
    return m_lineType;
}

void CJxPlotStyle::setLineType(KtPs::LineType type)
{
    m_lineType = type;
}

double CJxPlotStyle::lineWeight() const
{
    return m_lineWeight;
}

void CJxPlotStyle::setLineWeight(double millimetres)
{
    m_lineWeight = millimetres;
}

KtPs::FillStyle CJxPlotStyle::fillStyle() const
{
    return m_fillStyle;
}

void CJxPlotStyle::setFillStyle(KtPs::FillStyle style)
{
    m_fillStyle = style;
}

KtPs::LineJoinStyle CJxPlotStyle::lineJoinStyle() const
{
    return m_joinStyle;
}

void CJxPlotStyle::setLineJoinStyle(KtPs::LineJoinStyle style)
{
    m_joinStyle = style;
}

KtPs::LineEndStyle CJxPlotStyle::lineEndStyle() const
{
    return m_endStyle;
}

void CJxPlotStyle::setLineEndStyle(KtPs::LineEndStyle style)
{
    m_endStyle = style;
}
