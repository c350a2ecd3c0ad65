// Geometry of the predefined blocks in the two measurement sets. The numbers
// are the drawings' own decimal literals: the hexagon and triangle half-widths
// are rounded on purpose and must stay as written.

#include "ktpredefblocks_p.h"

#include "ktresourcetext.h"
#include "ktstringconversion.h"
#include "ktuiblocktable_p.h"

#include <ktapdocmanager.h>
#include <ktdbdatabase.h>
#include <ktdbentity.h>

namespace KtPredefBlocks {

namespace {

using KtUiBlockTable::BlockBuilder;

const wchar_t* const kBlockNames[kCount] = {
    L"_DetailCallout",
    L"_TagSlot",
    L"_TagCircle",
    L"_TagHexagon",
    L"_TagBox",
    L"_TagTriangle",
};

/// One measurement set; R is per block (the callout is twice the size).
struct Dimensions
{
    double calloutRadius; // R of "_DetailCallout"
    double tagRadius; // R of the tags
    double textHeight; // H
    double tagY; // T
    double upperY; // U
    double lowerY; // L
    double hexHalfWidth; // a
    double hexHalfEdge; // b
    double triangleHalfBase; // c
};

const Dimensions kImperial
    = {0.25, 0.125, 0.09375, -0.046875, 0.0208333, -0.15625, 0.144338, 0.0721688, 0.216506};
const Dimensions kMetric = {8, 4, 3, -1.5, 1, -6, 4.6188, 2.3094, 6.9282};

const double kQuarterTurn = 1.5707963267948966; // 90 degrees
const double kThreeQuarterTurn = 4.71238898038469; // 270 degrees

KtGePoint3d pt(double x, double y)
{
    return KtGePoint3d(x, y, 0.0);
}

const KtGeVector3d kNormal(0.0, 0.0, 1.0);

/// Lines carry every BYBLOCK property on layer "0"; other entities only colour BYBLOCK.
class PredefEntities
{
public:
    PredefEntities(BlockBuilder& block, KtDbObjectId layerZero, double textHeight)
        : m_block(block)
        , m_layerZero(layerZero)
        , m_textHeight(textHeight)
    { }

    void line(KtGePoint3d start, KtGePoint3d end)
    {
        auto line = std::make_unique<KtDbLine>();
        line->setLayer(m_layerZero, true, false);
        line->setColorIndex(0, true);
        line->setLinetype(L"BYBLOCK", true);
        line->setLineWeight(KtDb::kLnWtByBlock, true);
        KtCmTransparency byBlock;
        byBlock.setMethod(1);
        line->setTransparency(byBlock, true);
        line->setStartPoint(start);
        line->setEndPoint(end);
        m_block.append(std::move(line));
    }

    void circle(double radius)
    {
        auto circle = std::make_unique<KtDbCircle>();
        circle->setColorIndex(0, true);
        circle->setCenter(pt(0, 0));
        circle->setNormal(kNormal);
        circle->setRadius(radius);
        m_block.append(std::move(circle));
    }

    void arc(KtGePoint3d center, double radius, double startAngle, double endAngle)
    {
        auto arc = std::make_unique<KtDbArc>();
        KtCmColor byBlock;
        byBlock.setColorIndex(0);
        arc->setColor(byBlock, true);
        arc->setCenter(center);
        arc->setNormal(kNormal);
        arc->setRadius(radius);
        arc->setStartAngle(startAngle);
        arc->setEndAngle(endAngle);
        m_block.append(std::move(arc));
    }

    void closedPolyline(std::initializer_list<KtGePoint2d> points)
    {
        auto polyline = std::make_unique<KtDbPolyline>();
        polyline->setColorIndex(0, true);
        unsigned int index = 0;
        for (const KtGePoint2d& point : points) {
            polyline->addVertexAt(index, point, 0.0, -1.0, -1.0, 0);
            ++index;
        }
        polyline->setNormal(kNormal);
        polyline->setClosed(true);
        m_block.append(std::move(polyline));
    }

    /// An attribute definition centred on (0, @p y).
    void attribute(double y, const QString& text, const QString& prompt)
    {
        auto attribute = std::make_unique<KtDbAttributeDefinition>();
        attribute->setColorIndex(0, true);
        attribute->setPosition(pt(0, y));
        attribute->setAlignmentPoint(pt(0, y));
        attribute->setHeight(m_textHeight);
        const KtString wideText = ktutQStringToKtString(text);
        attribute->setTextString(wideText.c_str());
        attribute->setTag(wideText.c_str());
        attribute->setPrompt(ktutQStringToKtString(prompt).c_str());
        attribute->setHorizontalMode(KtDb::kTextCenter);
        m_block.append(std::move(attribute));
    }

    void tagNumber(double y)
    {
        attribute(y, QStringLiteral("TAGNUMBER"),
            ktutResourceText(L"IDS_PREDEF_ATTRIB_PROMPTTAG", L"输入标记编号"));
    }

private:
    BlockBuilder& m_block;
    KtDbObjectId m_layerZero;
    double m_textHeight;
};

void addPredefEntities(int index, const Dimensions& d, PredefEntities& e)
{
    const double r = index == 0 ? d.calloutRadius : d.tagRadius;
    switch (index) {
    case 0: // _DetailCallout
        e.circle(r);
        e.line(pt(r, 0), pt(-r, 0));
        e.attribute(d.upperY, ktutResourceText(L"IDS_PREDEF_ATTRIB_TEXTSTRING", L"视图编号"),
            ktutResourceText(L"IDS_PREDEF_ATTRIB_PROMPT", L"输入视图编号"));
        e.attribute(d.lowerY, ktutResourceText(L"IDS_PREDEF_ATTRIB_TEXTSTRING2", L"图纸编号"),
            ktutResourceText(L"IDS_PREDEF_ATTRIB_PROMPT2", L"输入图纸编号"));
        return;
    case 1: // _TagSlot
        e.arc(pt(-r, 0), r, kQuarterTurn, kThreeQuarterTurn);
        e.arc(pt(r, 0), r, kThreeQuarterTurn, kQuarterTurn);
        e.line(pt(-r, r), pt(r, r));
        e.line(pt(-r, -r), pt(r, -r));
        break;
    case 2: // _TagCircle
        e.circle(r);
        break;
    case 3: // _TagHexagon: a square
        e.closedPolyline({KtGePoint2d(-r, r), KtGePoint2d(r, r), KtGePoint2d(r, -r), KtGePoint2d(-r, -r)});
        break;
    case 4: // _TagBox: a hexagon
        e.closedPolyline({KtGePoint2d(-d.hexHalfWidth, 0), KtGePoint2d(-d.hexHalfEdge, r),
            KtGePoint2d(d.hexHalfEdge, r), KtGePoint2d(d.hexHalfWidth, 0), KtGePoint2d(d.hexHalfEdge, -r),
            KtGePoint2d(-d.hexHalfEdge, -r)});
        break;
    default: // 5, _TagTriangle
        e.closedPolyline({KtGePoint2d(-d.triangleHalfBase, -r), KtGePoint2d(0, 2 * r),
            KtGePoint2d(d.triangleHalfBase, -r)});
        break;
    }
    e.tagNumber(d.tagY);
}

} // namespace

const wchar_t* blockName(int row)
{
    return row >= 0 && row < kCount ? kBlockNames[row] : nullptr;
}

KtDbObjectId generate(int index)
{
    if (index < 0 || index >= kCount)
        return KtDbObjectId::kNull;
    const wchar_t* name = kBlockNames[index];
    KtDbDatabase* db = curDatabase();
    if (KtUiBlockTable::hasBlock(name, db))
        return KtUiBlockTable::recordId(name);
    if (!db)
        return KtDbObjectId::kNull;

    BlockBuilder block(name);
    block.record()->setBlockInsertUnits(db->insunits());
    const Dimensions& dimensions = db->measurement() == 1 ? kMetric : kImperial;
    PredefEntities entities(block, db->layerZero(), dimensions.textHeight);
    addPredefEntities(index, dimensions, entities);
    return block.addToTable();
}

} // namespace KtPredefBlocks
