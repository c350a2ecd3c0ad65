// The block definitions of the standard arrowheads: unit size, tip at the
// origin pointing to +X, the tail stub back to X = -1. The four-digit numbers
// (1/6 = 0.1667, tan 15 = 0.2679, tan 30 = 0.5774, the integral's arcs) are
// the drawings' own values; replacing them by exact ones would change every
// block made from now on against those already in drawings.

#include "ktuiarrowcombobox.h"
#include "ktuiblocktable_p.h"

#include <ktapdocmanager.h>
#include <ktdbdatabase.h>
#include <ktdbentity.h>

namespace {

using KtUiBlockTable::BlockBuilder;

const wchar_t* const kArrowBlockNames[20] = {
    nullptr, // row 0, the closed filled arrowhead, is the absence of a block
    L"_ClosedBlank",
    L"_Closed",
    L"_Dot",
    L"_ArchTick",
    L"_Oblique",
    L"_Open",
    L"_Origin",
    L"_Origin2",
    L"_Open90",
    L"_Open30",
    L"_DotSmall",
    L"_DotBlank",
    L"_Small",
    L"_BoxBlank",
    L"_BoxFilled",
    L"_DatumBlank",
    L"_DatumFilled",
    L"_Integral",
    L"_None",
};

KtGePoint3d pt(double x, double y)
{
    return KtGePoint3d(x, y, 0.0);
}

/// Entities of an arrowhead block: layer "0", everything else BYBLOCK.
class ArrowEntities
{
public:
    ArrowEntities(BlockBuilder& block, KtDbObjectId layerZero)
        : m_block(block)
        , m_layerZero(layerZero)
    { }

    void line(double x1, double y1, double x2, double y2)
    {
        auto line = std::make_unique<KtDbLine>();
        common(*line, KtDb::kLnWtByBlock);
        line->setStartPoint(pt(x1, y1));
        line->setEndPoint(pt(x2, y2));
        m_block.append(std::move(line));
    }

    void circle(double radius)
    {
        auto circle = std::make_unique<KtDbCircle>();
        common(*circle, KtDb::kLnWtByBlock);
        circle->setCenter(pt(0.0, 0.0));
        circle->setNormal(KtGeVector3d(0.0, 0.0, 1.0));
        circle->setRadius(radius);
        m_block.append(std::move(circle));
    }

    void arc(double cx, double cy, double radius, double startAngle, double endAngle)
    {
        auto arc = std::make_unique<KtDbArc>();
        common(*arc, KtDb::kLnWtByBlock);
        arc->setCenter(pt(cx, cy));
        arc->setRadius(radius);
        arc->setStartAngle(startAngle);
        arc->setEndAngle(endAngle);
        m_block.append(std::move(arc));
    }

    /// A new polyline with the common properties; polylines are BYLAYER in weight.
    std::unique_ptr<KtDbPolyline> polyline()
    {
        auto polyline = std::make_unique<KtDbPolyline>();
        common(*polyline, KtDb::kLnWtByLayer);
        return polyline;
    }

    void append(std::unique_ptr<KtDbPolyline> polyline) { m_block.append(std::move(polyline)); }

    /// A solid of four corners in the host's order (2 and 3 crosswise); BYLAYER in weight.
    void solid(KtGePoint3d c0, KtGePoint3d c1, KtGePoint3d c2, KtGePoint3d c3)
    {
        auto solid = std::make_unique<KtDbSolid>();
        common(*solid, KtDb::kLnWtByLayer);
        solid->setPointAt(0, c0);
        solid->setPointAt(1, c1);
        solid->setPointAt(2, c2);
        solid->setPointAt(3, c3);
        m_block.append(std::move(solid));
    }

private:
    void common(KtDbEntity& entity, KtDb::LineWeight weight)
    {
        entity.setLayer(m_layerZero, true, false);
        entity.setColorIndex(0, true);
        entity.setLinetype(L"BYBLOCK", true);
        entity.setLineWeight(weight, true);
        KtCmTransparency byBlock;
        byBlock.setMethod(1);
        entity.setTransparency(byBlock, true);
    }

    BlockBuilder& m_block;
    KtDbObjectId m_layerZero;
};

void addArrowEntities(int index, ArrowEntities& e)
{
    switch (index) {
    case 1: // _ClosedBlank
        e.line(-1, 0.1667, 0, 0);
        e.line(-1, -0.1667, 0, 0);
        e.line(-1, 0.1667, -1, -0.1667);
        break;
    case 2: // _Closed
        e.line(-1, 0.1667, 0, 0);
        e.line(-1, -0.1667, 0, 0);
        e.line(-1, 0.1667, -1, -0.1667);
        e.line(0, 0, -1, 0);
        break;
    case 3: { // _Dot: two half-circle segments drawn so wide that they fill the disc
        auto dot = e.polyline();
        dot->addVertexAt(0, KtGePoint2d(-0.25, 0), 1.0, 0.5, 0.5, 0);
        dot->addVertexAt(1, KtGePoint2d(0.25, 0), 1.0, 0.5, 0.5, 0);
        dot->setConstantWidth(0.5);
        dot->setClosed(true);
        e.append(std::move(dot));
        e.line(-0.5, 0, -1, 0);
        break;
    }
    case 4: { // _ArchTick
        auto tick = e.polyline();
        tick->addVertexAt(0, KtGePoint2d(-0.5, -0.5), 0.0, 0.15, 0.15, 0);
        tick->addVertexAt(1, KtGePoint2d(0.5, 0.5), 0.0, 0.15, 0.15, 0);
        tick->setConstantWidth(0.15);
        e.append(std::move(tick));
        break;
    }
    case 5: // _Oblique
        e.line(-0.5, -0.5, 0.5, 0.5);
        break;
    case 6: // _Open
        e.line(-1, 0.1667, 0, 0);
        e.line(-1, -0.1667, 0, 0);
        e.line(0, 0, -1, 0);
        break;
    case 7: // _Origin
        e.circle(0.5);
        e.line(0, 0, -1, 0);
        break;
    case 8: // _Origin2
        e.circle(0.5);
        e.circle(0.25);
        e.line(-0.5, 0, -1, 0);
        break;
    case 9: // _Open90
        e.line(-0.5, 0.5, 0, 0);
        e.line(0, 0, -0.5, -0.5);
        e.line(0, 0, -1, 0);
        break;
    case 10: // _Open30
        e.line(-1, 0.2679, 0, 0);
        e.line(0, 0, -1, -0.2679);
        e.line(0, 0, -1, 0);
        break;
    case 11: { // _DotSmall: closed before its vertices, unlike _Dot
        auto dot = e.polyline();
        dot->setClosed(true);
        dot->addVertexAt(0, KtGePoint2d(-0.0625, 0), 1.0, 0.5, 0.5, 0);
        dot->addVertexAt(1, KtGePoint2d(0.0625, 0), 1.0, 0.5, 0.5, 0);
        dot->setConstantWidth(0.5);
        e.append(std::move(dot));
        break;
    }
    case 12: // _DotBlank
        e.circle(0.5);
        e.line(-0.5, 0, -1, 0);
        break;
    case 13: // _Small
        e.circle(0.25);
        break;
    case 14: // _BoxBlank
        e.line(-0.5, -0.5, 0.5, -0.5);
        e.line(0.5, -0.5, 0.5, 0.5);
        e.line(0.5, 0.5, -0.5, 0.5);
        e.line(-0.5, 0.5, -0.5, -0.5);
        e.line(-0.5, 0, -1, 0);
        break;
    case 15: // _BoxFilled
        e.solid(pt(-0.5, 0.5), pt(0.5, 0.5), pt(-0.5, -0.5), pt(0.5, -0.5));
        e.line(-0.5, 0, -1, 0);
        break;
    case 16: // _DatumBlank
        e.line(0, 0.5774, -1, 0);
        e.line(-1, 0, 0, -0.5774);
        e.line(0, -0.5774, 0, 0.5774);
        break;
    case 17: // _DatumFilled: a triangle repeats its third corner
        e.solid(pt(0, 0.5774), pt(-1, 0), pt(0, -0.5774), pt(0, -0.5774));
        break;
    case 18: // _Integral: arcs of 102 to 168 and 282 to 348 degrees
        e.arc(0.4449, -0.0913, 0.4542, 1.780235837034216, 2.9321531433504737);
        e.arc(-0.4449, 0.0913, 0.4542, 4.921828490624009, 6.073745796940266);
        break;
    default: // 19, _None: an empty block
        break;
    }
}

} // namespace

KtDbObjectId KtUiArrowComboBox::GenerateArrowHeadBlock(int index)
{
    if (index < 1 || index > 19)
        return KtDbObjectId::kNull;
    const wchar_t* name = kArrowBlockNames[index];
    KtDbDatabase* db = curDatabase();
    if (hasBlock(name, db))
        return GetBlockTableRecordId(name);
    if (!db)
        return KtDbObjectId::kNull;

    BlockBuilder block(name);
    ArrowEntities entities(block, db->layerZero());
    addArrowEntities(index, entities);
    return block.addToTable();
}
