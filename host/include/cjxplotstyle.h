#pragma once

#include "jxrxobject.h"
#include "kthost_export.h"
#include "ktps.h"
#include "ktstring.h"

#include <QColor>

/**
 * @brief One named plot style of a plot style table.
 *
 * A host object on the host heap. A new style is named "Style", uses the
 * object's own colour, line type, fill, join and end style, and has line
 * weight 0.25 mm. The colour "use object" is an invalid QColor.
 */
class KTHOST_EXPORT CJxPlotStyle : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(CJxPlotStyle)

public:
    CJxPlotStyle();
    explicit CJxPlotStyle(const KtString& name);
    ~CJxPlotStyle() override;

    KtString name() const;
    void setName(const KtString& name);
    KtString description() const;
    void setDescription(const KtString& description);

    /// The style's colour; invalid when the object's own colour is used.
    QColor color() const;
    void setColor(const QColor& color);

    KtPs::LineType lineType() const;
    void setLineType(KtPs::LineType type);
    /// Line weight in millimetres; negative means the object's own line weight.
    double lineWeight() const;
    void setLineWeight(double millimetres);
    KtPs::FillStyle fillStyle() const;
    void setFillStyle(KtPs::FillStyle style);
    KtPs::LineJoinStyle lineJoinStyle() const;
    void setLineJoinStyle(KtPs::LineJoinStyle style);
    KtPs::LineEndStyle lineEndStyle() const;
    void setLineEndStyle(KtPs::LineEndStyle style);

private:
    KtString m_name;
    KtString m_description;
    QColor m_color;
    KtPs::LineType m_lineType = KtPs::kUseObjectLinetype;
    double m_lineWeight = 0.25;
    KtPs::FillStyle m_fillStyle = KtPs::kUseObjectFillStyle;
    KtPs::LineJoinStyle m_joinStyle = KtPs::kUseObjectJoinStyle;
    KtPs::LineEndStyle m_endStyle = KtPs::kUseObjectEndStyle;
};
