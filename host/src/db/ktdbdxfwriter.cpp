// KtDbDatabase::dxfOut: the drawing as an ASCII DXF of release 2010 (AC1024),
// UTF-8. Written here because no DXF library of the platform writes the
// properties the block pickers use.
//
// The subset written: the HEADER ($ACADVER, $DWGCODEPAGE, $HANDSEED,
// $INSUNITS, $MEASUREMENT); an empty CLASSES section; the TABLES VPORT
// (*Active), LTYPE (the drawing's linetypes, all continuous), LAYER (name and
// colour), STYLE (Standard), VIEW and UCS (empty), APPID (ACAD), DIMSTYLE
// (Standard) and BLOCK_RECORD (name and insertion units); the BLOCKS section,
// every block definition with its entities; ENTITIES (model space); and the
// OBJECTS section with the root dictionary, the group dictionary and the
// layouts of model and paper space. Entities: LINE, CIRCLE, ARC, LWPOLYLINE
// (bulges, start and end widths, constant width, closed flag, normal), SOLID
// and ATTDEF (position, alignment point, height, text, tag, prompt,
// horizontal alignment), each with its layer, colour (index or RGB),
// linetype, lineweight and transparency. Erased objects are left out.

#include "ktdbdatabase.h"

#include <QFile>
#include <QString>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr double kRadiansToDegrees = 57.29577951308232;

// Group codes and values into a buffer that goes to the file in 64 KiB pieces.
class DxfStream
{
public:
    explicit DxfStream(QFile& file)
        : m_file(file)
    {
        m_buffer.reserve(kPiece + 4096);
    }

    bool ok() const { return m_ok; }

    void code(int groupCode)
    {
        char digits[16];
        const auto end = std::to_chars(digits, digits + sizeof digits, groupCode).ptr;
        const std::size_t length = std::size_t(end - digits);
        if (length < 3)
            m_buffer.append(3 - length, ' ');
        m_buffer.append(digits, length);
        m_buffer.push_back('\n');
    }
    void text(int groupCode, const char* value)
    {
        code(groupCode);
        m_buffer.append(value);
        endLine();
    }
    void text(int groupCode, const KtString& value)
    {
        code(groupCode);
        // Line breaks would end the value early: they are written as spaces.
        const char* utf8 = value.utf8Ptr();
        for (const char* p = utf8 ? utf8 : ""; *p; ++p)
            m_buffer.push_back(*p == '\n' || *p == '\r' ? ' ' : *p);
        endLine();
    }
    void integer(int groupCode, long long value)
    {
        code(groupCode);
        char digits[24];
        m_buffer.append(
            digits, std::size_t(std::to_chars(digits, digits + sizeof digits, value).ptr - digits));
        endLine();
    }
    void handle(int groupCode, std::uint64_t value)
    {
        code(groupCode);
        char digits[24];
        char* end = std::to_chars(digits, digits + sizeof digits, value, 16).ptr;
        for (char* p = digits; p != end; ++p)
            m_buffer.push_back(char(std::toupper(static_cast<unsigned char>(*p))));
        endLine();
    }
    void real(int groupCode, double value)
    {
        code(groupCode);
        char digits[32];
        if (!std::isfinite(value))
            value = 0.0;
        // Whole numbers the short way; others in the shortest form that reads back exactly.
        const char* end;
        if (value == std::trunc(value) && std::fabs(value) < 1e15) {
            end = std::to_chars(digits, digits + sizeof digits, static_cast<long long>(value)).ptr;
            m_buffer.append(digits, std::size_t(end - digits));
            m_buffer.append(".0");
        } else {
            end = std::to_chars(digits, digits + sizeof digits, value).ptr;
            m_buffer.append(digits, std::size_t(end - digits));
        }
        endLine();
    }
    void point(int groupCode, double x, double y, double z)
    {
        real(groupCode, x);
        real(groupCode + 10, y);
        real(groupCode + 20, z);
    }
    void point(int groupCode, const KtGePoint3d& p) { point(groupCode, p.x, p.y, p.z); }
    void normal(const KtGeVector3d& n)
    {
        if (n != KtGeVector3d::kZAxis)
            point(210, n.x, n.y, n.z);
    }

    bool finish()
    {
        writeOut();
        return m_ok;
    }

private:
    static constexpr std::size_t kPiece = 64 * 1024;

    void endLine()
    {
        m_buffer.push_back('\n');
        if (m_buffer.size() >= kPiece)
            writeOut();
    }
    void writeOut()
    {
        if (m_ok && !m_buffer.empty())
            m_ok = m_file.write(m_buffer.data(), qint64(m_buffer.size())) == qint64(m_buffer.size());
        m_buffer.clear();
    }

    QFile& m_file;
    std::string m_buffer;
    bool m_ok = true;
};

} // namespace

class KtDbDxfWriter
{
public:
    KtDbDxfWriter(const KtDbDatabase& db, DxfStream& out)
        : m_db(db)
        , m_out(out)
        , m_next(db.handseed())
    {
        for (std::uint64_t* h : {&m_vportTable, &m_vport, &m_styleTable, &m_style, &m_viewTable, &m_ucsTable,
                 &m_appidTable, &m_appid, &m_dimstyleTable, &m_dimstyle, &m_rootDictionary,
                 &m_groupDictionary, &m_layoutDictionary, &m_modelLayout, &m_paperLayout})
            *h = m_next++;
        // The BLOCK and ENDBLK entities of every block get handles of their own.
        for (const KtDbObjectId& id : records(m_db.blockTableId())) {
            m_blockBegin.push_back(m_next++);
            m_blockEnd.push_back(m_next++);
            (void)id;
        }
    }

    void write()
    {
        header();
        m_out.text(0, "SECTION");
        m_out.text(2, "CLASSES");
        m_out.text(0, "ENDSEC");
        tables();
        blocks();
        entities();
        objects();
        m_out.text(0, "EOF");
    }

private:
    template <class T>
    T* at(const KtDbObjectId& id) const
    {
        return T::cast(m_db.objectAt(id.handle()));
    }

    // The records of a table in order, erased ones left out.
    std::vector<KtDbObjectId> records(const KtDbObjectId& tableId) const
    {
        std::vector<KtDbObjectId> result;
        const auto* table = at<KtDbSymbolTable>(tableId);
        KtDbObjectIterator* it = nullptr;
        if (!table || table->newIterator(it) != Kt::eOk)
            return result;
        for (; !it->done(); it->step()) {
            KtDbObjectId id;
            it->getId(id);
            result.push_back(id);
        }
        delete it;
        return result;
    }

    std::vector<KtDbObjectId> entitiesOf(const KtDbBlockTableRecord& block) const
    {
        std::vector<KtDbObjectId> result;
        KtDbObjectIterator* it = nullptr;
        block.newIterator(it);
        for (; !it->done(); it->step()) {
            KtDbObjectId id;
            it->getId(id);
            result.push_back(id);
        }
        delete it;
        return result;
    }

    void header()
    {
        m_out.text(0, "SECTION");
        m_out.text(2, "HEADER");
        m_out.text(9, "$ACADVER");
        m_out.text(1, "AC1024");
        m_out.text(9, "$DWGCODEPAGE");
        m_out.text(3, "ANSI_1252");
        m_out.text(9, "$HANDSEED");
        m_out.handle(5, m_next);
        m_out.text(9, "$INSUNITS");
        m_out.integer(70, m_db.insunits());
        m_out.text(9, "$MEASUREMENT");
        m_out.integer(70, m_db.measurement());
        m_out.text(0, "ENDSEC");
    }

    void tableStart(const char* name, std::uint64_t handle, std::size_t entries)
    {
        m_out.text(0, "TABLE");
        m_out.text(2, name);
        m_out.handle(5, handle);
        m_out.handle(330, 0);
        m_out.text(100, "AcDbSymbolTable");
        m_out.integer(70, (long long)entries);
    }

    void recordStart(const char* type, std::uint64_t handle, std::uint64_t table, const char* subclass)
    {
        m_out.text(0, type);
        m_out.handle(type == std::string("DIMSTYLE") ? 105 : 5, handle);
        m_out.handle(330, table);
        m_out.text(100, "AcDbSymbolTableRecord");
        m_out.text(100, subclass);
    }

    void tables()
    {
        m_out.text(0, "SECTION");
        m_out.text(2, "TABLES");

        tableStart("VPORT", m_vportTable, 1);
        recordStart("VPORT", m_vport, m_vportTable, "AcDbViewportTableRecord");
        m_out.text(2, "*Active");
        m_out.integer(70, 0);
        static const std::pair<int, double> view[] = {{10, 0}, {20, 0}, {11, 1}, {21, 1}, {12, 0}, {22, 0},
            {13, 0}, {23, 0}, {14, 0.5}, {24, 0.5}, {15, 0.5}, {25, 0.5}, {16, 0}, {26, 0}, {36, 1}, {17, 0},
            {27, 0}, {37, 0}, {40, 10}, {41, 1.5}, {42, 50}, {43, 0}, {44, 0}, {50, 0}, {51, 0}};
        for (const auto& [c, v] : view)
            m_out.real(c, v);
        for (const auto& [c, v] :
            {std::pair<int, int>{71, 0}, {72, 100}, {73, 1}, {74, 3}, {75, 0}, {76, 0}, {77, 0}, {78, 0}})
            m_out.integer(c, v);
        m_out.text(0, "ENDTAB");

        const std::vector<KtDbObjectId> linetypes = records(m_db.linetypeTableId());
        tableStart("LTYPE", m_db.linetypeTableId().handle(), linetypes.size());
        for (const KtDbObjectId& id : linetypes) {
            const auto* lt = at<KtDbLinetypeTableRecord>(id);
            recordStart("LTYPE", id.handle(), m_db.linetypeTableId().handle(), "AcDbLinetypeTableRecord");
            m_out.text(2, lt->name());
            m_out.integer(70, 0);
            m_out.text(3, lt->comments());
            m_out.integer(72, 65);
            m_out.integer(73, 0);
            m_out.real(40, 0.0);
        }
        m_out.text(0, "ENDTAB");

        const std::vector<KtDbObjectId> layers = records(m_db.layerTableId());
        tableStart("LAYER", m_db.layerTableId().handle(), layers.size());
        for (const KtDbObjectId& id : layers) {
            const auto* layer = at<KtDbLayerTableRecord>(id);
            recordStart("LAYER", id.handle(), m_db.layerTableId().handle(), "AcDbLayerTableRecord");
            m_out.text(2, layer->name());
            m_out.integer(70, 0);
            m_out.integer(62, layer->colorIndex());
            m_out.text(6, "Continuous");
            m_out.integer(370, -3);
            m_out.handle(390, 0);
        }
        m_out.text(0, "ENDTAB");

        tableStart("STYLE", m_styleTable, 1);
        recordStart("STYLE", m_style, m_styleTable, "AcDbTextStyleTableRecord");
        m_out.text(2, "Standard");
        m_out.integer(70, 0);
        m_out.real(40, 0.0);
        m_out.real(41, 1.0);
        m_out.real(50, 0.0);
        m_out.integer(71, 0);
        m_out.real(42, 2.5);
        m_out.text(3, "txt");
        m_out.text(4, "");
        m_out.text(0, "ENDTAB");

        tableStart("VIEW", m_viewTable, 0);
        m_out.text(0, "ENDTAB");
        tableStart("UCS", m_ucsTable, 0);
        m_out.text(0, "ENDTAB");

        tableStart("APPID", m_appidTable, 1);
        recordStart("APPID", m_appid, m_appidTable, "AcDbRegAppTableRecord");
        m_out.text(2, "ACAD");
        m_out.integer(70, 0);
        m_out.text(0, "ENDTAB");

        tableStart("DIMSTYLE", m_dimstyleTable, 1);
        m_out.text(100, "AcDbDimStyleTable");
        m_out.integer(71, 0);
        recordStart("DIMSTYLE", m_dimstyle, m_dimstyleTable, "AcDbDimStyleTableRecord");
        m_out.text(2, "Standard");
        m_out.integer(70, 0);
        m_out.text(0, "ENDTAB");

        const std::vector<KtDbObjectId> blocks = records(m_db.blockTableId());
        tableStart("BLOCK_RECORD", m_db.blockTableId().handle(), blocks.size());
        for (const KtDbObjectId& id : blocks) {
            const auto* block = at<KtDbBlockTableRecord>(id);
            recordStart("BLOCK_RECORD", id.handle(), m_db.blockTableId().handle(), "AcDbBlockTableRecord");
            m_out.text(2, block->name());
            m_out.handle(340, layoutOf(id));
            m_out.integer(70, block->blockInsertUnits());
            m_out.integer(280, 1);
            m_out.integer(281, 0);
        }
        m_out.text(0, "ENDTAB");
        m_out.text(0, "ENDSEC");
    }

    std::uint64_t layoutOf(const KtDbObjectId& block) const
    {
        return block == m_db.modelSpaceId() ? m_modelLayout
            : block == m_db.paperSpaceId()  ? m_paperLayout
                                            : 0;
    }

    void blocks()
    {
        m_out.text(0, "SECTION");
        m_out.text(2, "BLOCKS");
        const std::vector<KtDbObjectId> ids = records(m_db.blockTableId());
        for (std::size_t i = 0; i < ids.size(); ++i) {
            const auto* block = at<KtDbBlockTableRecord>(ids[i]);
            const bool paper = ids[i] == m_db.paperSpaceId();
            m_out.text(0, "BLOCK");
            m_out.handle(5, m_blockBegin[i]);
            m_out.handle(330, ids[i].handle());
            m_out.text(100, "AcDbEntity");
            if (paper)
                m_out.integer(67, 1);
            m_out.text(8, "0");
            m_out.text(100, "AcDbBlockBegin");
            m_out.text(2, block->name());
            m_out.integer(70,
                (block->isAnonymous() ? 1 : 0) | (block->isFromExternalReference() ? 4 : 0)
                    | (block->isDependent() ? 16 : 0));
            m_out.point(10, KtGePoint3d::kOrigin);
            m_out.text(3, block->name());
            KtString path;
            block->pathName(path);
            m_out.text(1, path);
            // Model space entities go to the ENTITIES section.
            if (ids[i] != m_db.modelSpaceId()) {
                for (const KtDbObjectId& entity : entitiesOf(*block))
                    write(entity, paper);
            }
            m_out.text(0, "ENDBLK");
            m_out.handle(5, m_blockEnd[i]);
            m_out.handle(330, ids[i].handle());
            m_out.text(100, "AcDbEntity");
            if (paper)
                m_out.integer(67, 1);
            m_out.text(8, "0");
            m_out.text(100, "AcDbBlockEnd");
        }
        m_out.text(0, "ENDSEC");
    }

    void entities()
    {
        m_out.text(0, "SECTION");
        m_out.text(2, "ENTITIES");
        if (const auto* model = at<KtDbBlockTableRecord>(m_db.modelSpaceId())) {
            for (const KtDbObjectId& entity : entitiesOf(*model))
                write(entity, false);
        }
        m_out.text(0, "ENDSEC");
    }

    void common(const char* type, const KtDbEntity& e, bool paper)
    {
        m_out.text(0, type);
        m_out.handle(5, e.objectId().handle());
        m_out.handle(330, e.ownerId().handle());
        m_out.text(100, "AcDbEntity");
        if (paper)
            m_out.integer(67, 1);
        const auto* layer = at<KtDbLayerTableRecord>(e.layerId());
        m_out.text(8, layer ? layer->name() : KtString(L"0"));
        if (e.linetype().compare(L"ByLayer") != 0)
            m_out.text(6, e.linetype());
        const KtCmColor color = e.color();
        if (color.colorMethod() == KtCmColor::kByColor) {
            m_out.integer(62, 7);
            m_out.integer(420, color.rgb());
        } else if (!color.isByLayer()) {
            m_out.integer(62, color.colorIndex());
        }
        m_out.integer(370, e.lineWeight());
        const KtCmTransparency transparency = e.transparency();
        if (transparency.isByBlock())
            m_out.integer(440, 0x01000000);
        else if (transparency.method() == KtCmTransparency::kByAlpha)
            m_out.integer(440, 0x02000000 | transparency.alpha());
    }

    void write(const KtDbObjectId& id, bool paper)
    {
        const KtDbObject* object = m_db.objectAt(id.handle());
        if (!object || object->isErased())
            return;
        if (const auto* line = KtDbLine::cast(object)) {
            common("LINE", *line, paper);
            m_out.text(100, "AcDbLine");
            m_out.point(10, line->startPoint());
            m_out.point(11, line->endPoint());
        } else if (const auto* circle = KtDbCircle::cast(object)) {
            common("CIRCLE", *circle, paper);
            m_out.text(100, "AcDbCircle");
            m_out.point(10, circle->center());
            m_out.real(40, circle->radius());
            m_out.normal(circle->normal());
        } else if (const auto* arc = KtDbArc::cast(object)) {
            common("ARC", *arc, paper);
            m_out.text(100, "AcDbCircle");
            m_out.point(10, arc->center());
            m_out.real(40, arc->radius());
            m_out.normal(arc->normal());
            m_out.text(100, "AcDbArc");
            m_out.real(50, arc->startAngle() * kRadiansToDegrees);
            m_out.real(51, arc->endAngle() * kRadiansToDegrees);
        } else if (const auto* polyline = KtDbPolyline::cast(object)) {
            common("LWPOLYLINE", *polyline, paper);
            m_out.text(100, "AcDbPolyline");
            const unsigned int n = polyline->numVerts();
            m_out.integer(90, n);
            m_out.integer(70, polyline->isClosed() ? 1 : 0);
            // Widths of -1 stand for the constant width. When every vertex has
            // the constant width, group 43 says it once; otherwise each vertex
            // carries its own pair.
            const double constant = polyline->constantWidth();
            std::vector<std::pair<double, double>> widths(n);
            bool uniform = true;
            for (unsigned int i = 0; i < n; ++i) {
                double start = 0, end = 0;
                polyline->getWidthsAt(i, start, end);
                widths[i] = {start < 0.0 ? constant : start, end < 0.0 ? constant : end};
                uniform = uniform && widths[i].first == constant && widths[i].second == constant;
            }
            if (uniform && constant > 0.0)
                m_out.real(43, constant);
            const KtGeVector3d normal = polyline->normal();
            for (unsigned int i = 0; i < n; ++i) {
                const KtGePoint2d p = polyline->pointAt(i);
                m_out.real(10, p.x);
                m_out.real(20, p.y);
                if (!uniform) {
                    m_out.real(40, widths[i].first);
                    m_out.real(41, widths[i].second);
                }
                if (polyline->bulgeAt(i) != 0.0)
                    m_out.real(42, polyline->bulgeAt(i));
                if (polyline->vertexIdentifierAt(i) != 0)
                    m_out.integer(91, polyline->vertexIdentifierAt(i));
            }
            m_out.normal(normal);
        } else if (const auto* solid = KtDbSolid::cast(object)) {
            common("SOLID", *solid, paper);
            m_out.text(100, "AcDbTrace");
            for (int corner = 0; corner < 4; ++corner)
                m_out.point(10 + corner, solid->pointAt(corner));
        } else if (const auto* attdef = KtDbAttributeDefinition::cast(object)) {
            common("ATTDEF", *attdef, paper);
            m_out.text(100, "AcDbText");
            m_out.point(10, attdef->position());
            m_out.real(40, attdef->height());
            m_out.text(1, attdef->textString());
            m_out.integer(72, attdef->horizontalMode());
            m_out.point(11, attdef->alignmentPoint());
            m_out.text(100, "AcDbAttributeDefinition");
            m_out.integer(280, 0);
            m_out.text(3, attdef->prompt());
            m_out.text(2, attdef->tag());
            m_out.integer(70, 0);
            m_out.integer(74, 0);
        }
    }

    void layout(std::uint64_t handle, const char* name, int order, std::uint64_t block)
    {
        m_out.text(0, "LAYOUT");
        m_out.handle(5, handle);
        m_out.handle(330, m_layoutDictionary);
        m_out.text(100, "AcDbPlotSettings");
        for (int c : {1, 4, 6})
            m_out.text(c, "");
        for (int c : {40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 140, 141})
            m_out.real(c, 0.0);
        m_out.real(142, 1.0);
        m_out.real(143, 1.0);
        m_out.integer(70, order == 0 ? 688 : 0);
        for (const auto& [c, v] : {std::pair<int, int>{72, 0}, {73, 0}, {74, 5}})
            m_out.integer(c, v);
        m_out.text(7, "");
        for (const auto& [c, v] : {std::pair<int, int>{75, 16}, {76, 0}, {77, 2}, {78, 300}})
            m_out.integer(c, v);
        m_out.real(147, 1.0);
        m_out.real(148, 0.0);
        m_out.real(149, 0.0);
        m_out.text(100, "AcDbLayout");
        m_out.text(1, name);
        m_out.integer(70, 1);
        m_out.integer(71, order);
        m_out.real(10, 0.0);
        m_out.real(20, 0.0);
        m_out.real(11, 12.0);
        m_out.real(21, 9.0);
        for (int c : {12, 22, 32, 14, 24, 34, 15, 25, 35})
            m_out.real(c, 0.0);
        m_out.real(146, 0.0);
        m_out.point(13, KtGePoint3d::kOrigin);
        m_out.point(16, 1.0, 0.0, 0.0);
        m_out.point(17, 0.0, 1.0, 0.0);
        m_out.integer(76, 1);
        m_out.handle(330, block);
    }

    void objects()
    {
        m_out.text(0, "SECTION");
        m_out.text(2, "OBJECTS");
        m_out.text(0, "DICTIONARY");
        m_out.handle(5, m_rootDictionary);
        m_out.handle(330, 0);
        m_out.text(100, "AcDbDictionary");
        m_out.integer(281, 1);
        m_out.text(3, "ACAD_GROUP");
        m_out.handle(350, m_groupDictionary);
        m_out.text(3, "ACAD_LAYOUT");
        m_out.handle(350, m_layoutDictionary);
        m_out.text(0, "DICTIONARY");
        m_out.handle(5, m_groupDictionary);
        m_out.handle(330, m_rootDictionary);
        m_out.text(100, "AcDbDictionary");
        m_out.integer(281, 1);
        m_out.text(0, "DICTIONARY");
        m_out.handle(5, m_layoutDictionary);
        m_out.handle(330, m_rootDictionary);
        m_out.text(100, "AcDbDictionary");
        m_out.integer(281, 1);
        m_out.text(3, "Model");
        m_out.handle(350, m_modelLayout);
        m_out.text(3, "Layout1");
        m_out.handle(350, m_paperLayout);
        layout(m_modelLayout, "Model", 0, m_db.modelSpaceId().handle());
        layout(m_paperLayout, "Layout1", 1, m_db.paperSpaceId().handle());
        m_out.text(0, "ENDSEC");
    }

    const KtDbDatabase& m_db;
    DxfStream& m_out;
    std::uint64_t m_next;
    std::uint64_t m_vportTable, m_vport, m_styleTable, m_style, m_viewTable, m_ucsTable, m_appidTable,
        m_appid, m_dimstyleTable, m_dimstyle, m_rootDictionary, m_groupDictionary, m_layoutDictionary,
        m_modelLayout, m_paperLayout;
    std::vector<std::uint64_t> m_blockBegin, m_blockEnd;
};

Kt::ErrorStatus KtDbDatabase::dxfOut(const wchar_t* fileName) const
{
    if (!fileName || !*fileName)
        return Kt::eInvalidInput;
    QFile file(QString::fromWCharArray(fileName));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return Kt::eFileAccessError;
    DxfStream out(file);
    KtDbDxfWriter(*this, out).write();
    const bool written = out.finish();
    file.close();
    return written && file.error() == QFileDevice::NoError ? Kt::eOk : Kt::eFileAccessError;
}
