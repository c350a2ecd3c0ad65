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
#include <charconv>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

constexpr double kRadiansToDegrees = 57.29577951308232;

// Group codes and values into a buffer that goes to the file in 64 KiB pieces.
// Every value is written straight into the buffer; a value longer than the
// room left goes out in pieces.
class DxfStream
{
public:
    explicit DxfStream(QFile& file)
        : m_file(file)
        , m_buffer(new char[kPiece + kSlack])
        , m_pos(m_buffer.get())
    { }

    bool ok() const { return m_ok; }

    void code(int groupCode)
    {
        // Right-aligned in three columns, as DXF writers customarily do.
        char* p = m_pos;
        if (groupCode >= 0 && groupCode < 1000) {
            p[0] = groupCode >= 100 ? char('0' + groupCode / 100) : ' ';
            p[1] = groupCode >= 10 ? char('0' + groupCode / 10 % 10) : ' ';
            p[2] = char('0' + groupCode % 10);
            p[3] = '\n';
            m_pos = p + 4;
        } else {
            m_pos = std::to_chars(p, p + 16, groupCode).ptr;
            *m_pos++ = '\n';
        }
    }
    void text(int groupCode, const char* value) { text(groupCode, value, std::strlen(value)); }
    void text(int groupCode, const std::string& value) { text(groupCode, value.data(), value.size()); }
    void text(int groupCode, const KtString& value) { text(groupCode, utf8Line(value)); }
    void integer(int groupCode, long long value)
    {
        code(groupCode);
        m_pos = std::to_chars(m_pos, m_pos + 24, value).ptr;
        endLine();
    }
    void handle(int groupCode, std::uint64_t value)
    {
        code(groupCode);
        char* end = std::to_chars(m_pos, m_pos + 24, value, 16).ptr;
        for (char* p = m_pos; p != end; ++p) {
            if (*p >= 'a')
                *p = char(*p - 'a' + 'A');
        }
        m_pos = end;
        endLine();
    }
    void real(int groupCode, double value)
    {
        code(groupCode);
        if (!std::isfinite(value))
            value = 0.0;
        // Whole numbers the short way; others in the shortest form that reads back exactly.
        if (value == std::trunc(value) && std::fabs(value) < 1e15) {
            m_pos = std::to_chars(m_pos, m_pos + 24, static_cast<long long>(value)).ptr;
            *m_pos++ = '.';
            *m_pos++ = '0';
        } else {
            m_pos = std::to_chars(m_pos, m_pos + 32, value).ptr;
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

    /// @p value in UTF-8 on one line: line breaks would end the value early and become spaces.
    static std::string utf8Line(const KtString& value)
    {
        const char* utf8 = value.utf8Ptr();
        std::string line(utf8 ? utf8 : "");
        std::replace_if(
            line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
        return line;
    }

private:
    static constexpr std::size_t kPiece = 64 * 1024;
    // Room past a piece for one group code and a number (never more than 64 bytes).
    static constexpr std::size_t kSlack = 256;

    void text(int groupCode, const char* value, std::size_t length)
    {
        code(groupCode);
        while (length > 0) {
            const std::size_t room = std::size_t(m_buffer.get() + kPiece + kSlack - 1 - m_pos);
            const std::size_t part = std::min(length, room);
            std::memcpy(m_pos, value, part);
            m_pos += part;
            value += part;
            length -= part;
            if (length > 0)
                writeOut();
        }
        endLine();
    }
    void endLine()
    {
        *m_pos++ = '\n';
        if (std::size_t(m_pos - m_buffer.get()) >= kPiece)
            writeOut();
    }
    void writeOut()
    {
        const qint64 size = m_pos - m_buffer.get();
        if (m_ok && size > 0)
            m_ok = m_file.write(m_buffer.get(), size) == size;
        m_pos = m_buffer.get();
    }

    QFile& m_file;
    std::unique_ptr<char[]> m_buffer;
    char* m_pos;
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
        // The blocks in order, with their names in UTF-8; the BLOCK and ENDBLK
        // entities of every block get handles of their own.
        for (const KtDbObjectId& id : records(m_db.blockTableId())) {
            const auto* record = at<KtDbBlockTableRecord>(id);
            KtString path;
            record->pathName(path);
            m_blocks.push_back({id, record, DxfStream::utf8Line(record->name()), DxfStream::utf8Line(path),
                m_next, m_next + 1});
            m_next += 2;
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

    // The entities of a block in order; write() leaves erased ones out.
    static const std::vector<KtDbObjectId>& entitiesOf(const KtDbBlockTableRecord& block)
    {
        return block.m_entities;
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

        tableStart("BLOCK_RECORD", m_db.blockTableId().handle(), m_blocks.size());
        for (const Block& block : m_blocks) {
            recordStart(
                "BLOCK_RECORD", block.id.handle(), m_db.blockTableId().handle(), "AcDbBlockTableRecord");
            m_out.text(2, block.name);
            m_out.handle(340, layoutOf(block.id));
            m_out.integer(70, block.record->blockInsertUnits());
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
        for (const Block& b : m_blocks) {
            const KtDbBlockTableRecord* block = b.record;
            const bool paper = b.id == m_db.paperSpaceId();
            m_out.text(0, "BLOCK");
            m_out.handle(5, b.beginHandle);
            m_out.handle(330, b.id.handle());
            m_out.text(100, "AcDbEntity");
            if (paper)
                m_out.integer(67, 1);
            m_out.text(8, "0");
            m_out.text(100, "AcDbBlockBegin");
            m_out.text(2, b.name);
            m_out.integer(70,
                (block->isAnonymous() ? 1 : 0) | (block->isFromExternalReference() ? 4 : 0)
                    | (block->isDependent() ? 16 : 0));
            m_out.point(10, KtGePoint3d::kOrigin);
            m_out.text(3, b.name);
            m_out.text(1, b.path);
            // Model space entities go to the ENTITIES section.
            if (b.id != m_db.modelSpaceId()) {
                writeEntities(*block, paper);
            }
            m_out.text(0, "ENDBLK");
            m_out.handle(5, b.endHandle);
            m_out.handle(330, b.id.handle());
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
            writeEntities(*model, false);
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
        m_out.text(8, layerName(e.layerId()));
        if (const std::string* linetype = linetypeName(e.m_linetype))
            m_out.text(6, *linetype);
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

    // Entities share few layers and linetypes: their names are made UTF-8 once.
    const std::string& layerName(const KtDbObjectId& id)
    {
        if (m_lastLayer != m_layerNames.end() && m_lastLayer->first == id.handle())
            return m_lastLayer->second;
        auto it = m_layerNames.find(id.handle());
        if (it == m_layerNames.end()) {
            const auto* layer = at<KtDbLayerTableRecord>(id);
            it = m_layerNames
                     .emplace(id.handle(), layer ? DxfStream::utf8Line(layer->name()) : std::string("0"))
                     .first;
        }
        m_lastLayer = it;
        return it->second;
    }
    // The linetype's name in UTF-8; null for ByLayer, which is not written.
    const std::string* linetypeName(const KtString& name)
    {
        // Most entities share the last one's linetype.
        if (!m_haveLinetype || name.compare(m_lastLinetype) != 0) {
            m_haveLinetype = true;
            m_lastLinetype = name;
            m_lastLinetypeIsByLayer = name.compare(L"ByLayer") == 0;
            m_lastLinetypeUtf8 = DxfStream::utf8Line(name);
        }
        return m_lastLinetypeIsByLayer ? nullptr : &m_lastLinetypeUtf8;
    }

    void writeEntities(const KtDbBlockTableRecord& block, bool paper)
    {
        for (const KtDbObjectId& id : entitiesOf(block))
            write(m_db.objectAt(id.handle()), paper);
    }

    void write(const KtDbObject* object, bool paper)
    {
        if (!object || object->isErased())
            return;
        // The entity classes have no subclasses: their exact class decides.
        const CJxRxClass* kind = object->isA();
        if (kind == KtDbLine::desc()) {
            const auto* line = static_cast<const KtDbLine*>(object);
            common("LINE", *line, paper);
            m_out.text(100, "AcDbLine");
            m_out.point(10, line->startPoint());
            m_out.point(11, line->endPoint());
        } else if (kind == KtDbCircle::desc()) {
            const auto* circle = static_cast<const KtDbCircle*>(object);
            common("CIRCLE", *circle, paper);
            m_out.text(100, "AcDbCircle");
            m_out.point(10, circle->center());
            m_out.real(40, circle->radius());
            m_out.normal(circle->normal());
        } else if (kind == KtDbArc::desc()) {
            const auto* arc = static_cast<const KtDbArc*>(object);
            common("ARC", *arc, paper);
            m_out.text(100, "AcDbCircle");
            m_out.point(10, arc->center());
            m_out.real(40, arc->radius());
            m_out.normal(arc->normal());
            m_out.text(100, "AcDbArc");
            m_out.real(50, arc->startAngle() * kRadiansToDegrees);
            m_out.real(51, arc->endAngle() * kRadiansToDegrees);
        } else if (kind == KtDbPolyline::desc()) {
            const auto* polyline = static_cast<const KtDbPolyline*>(object);
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
        } else if (kind == KtDbSolid::desc()) {
            const auto* solid = static_cast<const KtDbSolid*>(object);
            common("SOLID", *solid, paper);
            m_out.text(100, "AcDbTrace");
            for (int corner = 0; corner < 4; ++corner)
                m_out.point(10 + corner, solid->pointAt(corner));
        } else if (kind == KtDbAttributeDefinition::desc()) {
            const auto* attdef = static_cast<const KtDbAttributeDefinition*>(object);
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
    std::unordered_map<std::uint64_t, std::string> m_layerNames;
    std::unordered_map<std::uint64_t, std::string>::const_iterator m_lastLayer = m_layerNames.end();
    bool m_haveLinetype = false;
    KtString m_lastLinetype;
    bool m_lastLinetypeIsByLayer = false;
    std::string m_lastLinetypeUtf8;
    struct Block
    {
        KtDbObjectId id;
        const KtDbBlockTableRecord* record;
        std::string name, path;
        std::uint64_t beginHandle, endHandle;
    };
    std::vector<Block> m_blocks;
    std::uint64_t m_next;
    std::uint64_t m_vportTable, m_vport, m_styleTable, m_style, m_viewTable, m_ucsTable, m_appidTable,
        m_appid, m_dimstyleTable, m_dimstyle, m_rootDictionary, m_groupDictionary, m_layoutDictionary,
        m_modelLayout, m_paperLayout;
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
