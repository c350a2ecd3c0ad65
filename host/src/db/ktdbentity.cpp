#include "ktdbentity.h"
#include "ktdbdatabase.h"

#include <cmath>
#include <cwchar>

KT_DEFINE_RX_MEMBERS(KtDbEntity, KtDbObject)
KT_DEFINE_RX_MEMBERS(KtDbLine, KtDbEntity)
KT_DEFINE_RX_MEMBERS(KtDbCircle, KtDbEntity)
KT_DEFINE_RX_MEMBERS(KtDbArc, KtDbEntity)
KT_DEFINE_RX_MEMBERS(KtDbPolyline, KtDbEntity)
KT_DEFINE_RX_MEMBERS(KtDbSolid, KtDbEntity)
KT_DEFINE_RX_MEMBERS(KtDbAttributeDefinition, KtDbEntity)

// Each setter refuses to change a database object that is not open for write.
#define KT_CHECK_WRITE()                                                                                     \
    if (const Kt::ErrorStatus status = checkWrite(); status != Kt::eOk)                                      \
    return status

namespace {

bool isZero(const KtGeVector3d& v)
{
    return v.x == 0.0 && v.y == 0.0 && v.z == 0.0;
}

bool isFiniteValue(double v)
{
    return std::isfinite(v);
}

} // namespace

// --- KtDbEntity ---------------------------------------------------------------

KtDbEntity::KtDbEntity()
    : m_linetype(L"ByLayer")
{ }

KtDbEntity::~KtDbEntity() = default;

Kt::ErrorStatus KtDbEntity::setLayer(KtDbObjectId layer, bool, bool)
{
    KT_CHECK_WRITE();
    if (layer.isNull())
        return Kt::eInvalidInput;
    m_layer = layer;
    return Kt::eOk;
}

KtDbObjectId KtDbEntity::layerId() const
{
    return m_layer;
}

Kt::ErrorStatus KtDbEntity::setColorIndex(int colorIndex, bool)
{
    KT_CHECK_WRITE();
    KtCmColor color;
    if (!color.setColorIndex(colorIndex))
        return Kt::eInvalidInput;
    m_color = color;
    return Kt::eOk;
}

int KtDbEntity::colorIndex() const
{
    return m_color.colorIndex();
}

Kt::ErrorStatus KtDbEntity::setColor(const KtCmColor& color, bool)
{
    KT_CHECK_WRITE();
    m_color = color;
    return Kt::eOk;
}

KtCmColor KtDbEntity::color() const
{
    return m_color;
}

Kt::ErrorStatus KtDbEntity::setLinetype(const wchar_t* name, bool)
{
    KT_CHECK_WRITE();
    if (!name || !*name)
        return Kt::eInvalidInput;
    KtString chosen(name);
    // In a database the linetype must exist there, and takes its own spelling.
    if (KtDbDatabase* db = database()) {
        KtDbLinetypeTable* table = nullptr;
        if (db->getSymbolTable(table, KtDb::kForRead) == Kt::eOk) {
            KtDbObjectId id;
            const Kt::ErrorStatus found = table->getIdAt(name, id);
            table->close();
            if (found != Kt::eOk)
                return Kt::eKeyNotFound;
            KtDbSymbolTableRecord* record = nullptr;
            if (ktdbOpenObject(record, id, KtDb::kForRead) == Kt::eOk) {
                chosen = record->name();
                record->close();
            }
        }
    }
    m_linetype = chosen;
    return Kt::eOk;
}

KtString KtDbEntity::linetype() const
{
    return m_linetype;
}

Kt::ErrorStatus KtDbEntity::setLineWeight(KtDb::LineWeight weight, bool)
{
    KT_CHECK_WRITE();
    if (weight < KtDb::kLnWtByLwDefault || weight > KtDb::kLnWt211)
        return Kt::eInvalidInput;
    m_lineWeight = weight;
    return Kt::eOk;
}

KtDb::LineWeight KtDbEntity::lineWeight() const
{
    return m_lineWeight;
}

Kt::ErrorStatus KtDbEntity::setTransparency(const KtCmTransparency& transparency, bool)
{
    KT_CHECK_WRITE();
    m_transparency = transparency;
    return Kt::eOk;
}

KtCmTransparency KtDbEntity::transparency() const
{
    return m_transparency;
}

void KtDbEntity::addedToDatabase(KtDbDatabase* database)
{
    if (m_layer.isNull())
        m_layer = database->layerZero();
    // The linetype takes the database's spelling when it has one of that name.
    KtDbLinetypeTable* table = nullptr;
    if (database->getSymbolTable(table, KtDb::kForRead) == Kt::eOk) {
        KtDbObjectId id;
        if (table->getIdAt(m_linetype.c_str(), id) == Kt::eOk) {
            KtDbSymbolTableRecord* record = nullptr;
            if (ktdbOpenObject(record, id, KtDb::kForRead) == Kt::eOk) {
                m_linetype = record->name();
                record->close();
            }
        }
        table->close();
    }
}

// --- KtDbLine -------------------------------------------------------------------

KtDbLine::KtDbLine() = default;

KtDbLine::KtDbLine(const KtGePoint3d& start, const KtGePoint3d& end)
    : m_start(start)
    , m_end(end)
{ }

Kt::ErrorStatus KtDbLine::setStartPoint(const KtGePoint3d& point)
{
    KT_CHECK_WRITE();
    m_start = point;
    return Kt::eOk;
}

Kt::ErrorStatus KtDbLine::setEndPoint(const KtGePoint3d& point)
{
    KT_CHECK_WRITE();
    m_end = point;
    return Kt::eOk;
}

KtGePoint3d KtDbLine::startPoint() const
{
    return m_start;
}

KtGePoint3d KtDbLine::endPoint() const
{
    return m_end;
}

// --- KtDbCircle -----------------------------------------------------------------

KtDbCircle::KtDbCircle() = default;

Kt::ErrorStatus KtDbCircle::setCenter(const KtGePoint3d& center)
{
    KT_CHECK_WRITE();
    m_center = center;
    return Kt::eOk;
}

Kt::ErrorStatus KtDbCircle::setNormal(const KtGeVector3d& normal)
{
    KT_CHECK_WRITE();
    if (isZero(normal))
        return Kt::eInvalidInput;
    m_normal = normal;
    return Kt::eOk;
}

Kt::ErrorStatus KtDbCircle::setRadius(double radius)
{
    KT_CHECK_WRITE();
    if (!(radius > 0.0) || !isFiniteValue(radius))
        return Kt::eInvalidInput;
    m_radius = radius;
    return Kt::eOk;
}

KtGePoint3d KtDbCircle::center() const
{
    return m_center;
}

KtGeVector3d KtDbCircle::normal() const
{
    return m_normal;
}

double KtDbCircle::radius() const
{
    return m_radius;
}

// --- KtDbArc ----------------------------------------------------------------------

KtDbArc::KtDbArc() = default;

Kt::ErrorStatus KtDbArc::setCenter(const KtGePoint3d& center)
{
    KT_CHECK_WRITE();
    m_center = center;
    return Kt::eOk;
}

Kt::ErrorStatus KtDbArc::setNormal(const KtGeVector3d& normal)
{
    KT_CHECK_WRITE();
    if (isZero(normal))
        return Kt::eInvalidInput;
    m_normal = normal;
    return Kt::eOk;
}

Kt::ErrorStatus KtDbArc::setRadius(double radius)
{
    KT_CHECK_WRITE();
    if (!(radius > 0.0) || !isFiniteValue(radius))
        return Kt::eInvalidInput;
    m_radius = radius;
    return Kt::eOk;
}

Kt::ErrorStatus KtDbArc::setStartAngle(double radians)
{
    KT_CHECK_WRITE();
    if (!isFiniteValue(radians))
        return Kt::eInvalidInput;
    m_startAngle = radians;
    return Kt::eOk;
}

Kt::ErrorStatus KtDbArc::setEndAngle(double radians)
{
    KT_CHECK_WRITE();
    if (!isFiniteValue(radians))
        return Kt::eInvalidInput;
    m_endAngle = radians;
    return Kt::eOk;
}

KtGePoint3d KtDbArc::center() const
{
    return m_center;
}

KtGeVector3d KtDbArc::normal() const
{
    return m_normal;
}

double KtDbArc::radius() const
{
    return m_radius;
}

double KtDbArc::startAngle() const
{
    return m_startAngle;
}

double KtDbArc::endAngle() const
{
    return m_endAngle;
}

// --- KtDbPolyline ------------------------------------------------------------------

KtDbPolyline::KtDbPolyline() = default;

Kt::ErrorStatus KtDbPolyline::addVertexAt(unsigned int index, const KtGePoint2d& point, double bulge,
    double startWidth, double endWidth, int identifier)
{
    KT_CHECK_WRITE();
    if (index > m_vertices.size() || !isFiniteValue(point.x) || !isFiniteValue(point.y)
        || !isFiniteValue(bulge))
        return Kt::eInvalidInput;
    m_vertices.insert(m_vertices.begin() + index, Vertex{point, bulge, startWidth, endWidth, identifier});
    return Kt::eOk;
}

Kt::ErrorStatus KtDbPolyline::setConstantWidth(double width)
{
    KT_CHECK_WRITE();
    if (!(width >= 0.0) || !isFiniteValue(width))
        return Kt::eInvalidInput;
    m_constantWidth = width;
    for (Vertex& v : m_vertices)
        v.startWidth = v.endWidth = width;
    return Kt::eOk;
}

Kt::ErrorStatus KtDbPolyline::setClosed(bool closed)
{
    KT_CHECK_WRITE();
    m_closed = closed;
    return Kt::eOk;
}

Kt::ErrorStatus KtDbPolyline::setNormal(const KtGeVector3d& normal)
{
    KT_CHECK_WRITE();
    if (isZero(normal))
        return Kt::eInvalidInput;
    m_normal = normal;
    return Kt::eOk;
}

unsigned int KtDbPolyline::numVerts() const
{
    return unsigned(m_vertices.size());
}

KtGePoint2d KtDbPolyline::pointAt(unsigned int index) const
{
    return index < m_vertices.size() ? m_vertices[index].point : KtGePoint2d();
}

double KtDbPolyline::bulgeAt(unsigned int index) const
{
    return index < m_vertices.size() ? m_vertices[index].bulge : 0.0;
}

void KtDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const
{
    startWidth = endWidth = 0.0;
    if (index >= m_vertices.size())
        return;
    startWidth = m_vertices[index].startWidth;
    endWidth = m_vertices[index].endWidth;
}

int KtDbPolyline::vertexIdentifierAt(unsigned int index) const
{
    return index < m_vertices.size() ? m_vertices[index].identifier : 0;
}

double KtDbPolyline::constantWidth() const
{
    for (const Vertex& v : m_vertices) {
        const double start = v.startWidth < 0 ? m_constantWidth : v.startWidth;
        const double end = v.endWidth < 0 ? m_constantWidth : v.endWidth;
        if (start != m_constantWidth || end != m_constantWidth)
            return -1.0;
    }
    return m_constantWidth;
}

bool KtDbPolyline::isClosed() const
{
    return m_closed;
}

KtGeVector3d KtDbPolyline::normal() const
{
    return m_normal;
}

// --- KtDbSolid ------------------------------------------------------------------------

KtDbSolid::KtDbSolid() = default;

Kt::ErrorStatus KtDbSolid::setPointAt(int corner, const KtGePoint3d& point)
{
    KT_CHECK_WRITE();
    if (corner < 0 || corner > 3)
        return Kt::eInvalidInput;
    m_corners[corner] = point;
    return Kt::eOk;
}

KtGePoint3d KtDbSolid::pointAt(int corner) const
{
    return corner >= 0 && corner <= 3 ? m_corners[corner] : KtGePoint3d();
}

// --- KtDbAttributeDefinition ----------------------------------------------------------------

KtDbAttributeDefinition::KtDbAttributeDefinition() = default;

Kt::ErrorStatus KtDbAttributeDefinition::setPosition(const KtGePoint3d& point)
{
    KT_CHECK_WRITE();
    m_position = point;
    return Kt::eOk;
}

Kt::ErrorStatus KtDbAttributeDefinition::setAlignmentPoint(const KtGePoint3d& point)
{
    KT_CHECK_WRITE();
    m_alignment = point;
    return Kt::eOk;
}

Kt::ErrorStatus KtDbAttributeDefinition::setHeight(double height)
{
    KT_CHECK_WRITE();
    if (!(height > 0.0) || !isFiniteValue(height))
        return Kt::eInvalidInput;
    m_height = height;
    return Kt::eOk;
}

Kt::ErrorStatus KtDbAttributeDefinition::setTextString(const wchar_t* text)
{
    KT_CHECK_WRITE();
    m_text = KtString(text ? text : L"");
    return Kt::eOk;
}

Kt::ErrorStatus KtDbAttributeDefinition::setTag(const wchar_t* tag)
{
    KT_CHECK_WRITE();
    if (!tag || !*tag || std::wcschr(tag, L' '))
        return Kt::eInvalidInput;
    m_tag = KtString(tag);
    return Kt::eOk;
}

Kt::ErrorStatus KtDbAttributeDefinition::setPrompt(const wchar_t* prompt)
{
    KT_CHECK_WRITE();
    m_prompt = KtString(prompt ? prompt : L"");
    return Kt::eOk;
}

Kt::ErrorStatus KtDbAttributeDefinition::setHorizontalMode(KtDb::TextHorzMode mode)
{
    KT_CHECK_WRITE();
    if (mode < KtDb::kTextLeft || mode > KtDb::kTextFit)
        return Kt::eInvalidInput;
    m_horizontalMode = mode;
    return Kt::eOk;
}

KtGePoint3d KtDbAttributeDefinition::position() const
{
    return m_position;
}

KtGePoint3d KtDbAttributeDefinition::alignmentPoint() const
{
    return m_alignment;
}

double KtDbAttributeDefinition::height() const
{
    return m_height;
}

KtString KtDbAttributeDefinition::textString() const
{
    return m_text;
}

KtString KtDbAttributeDefinition::tag() const
{
    return m_tag;
}

KtString KtDbAttributeDefinition::prompt() const
{
    return m_prompt;
}

KtDb::TextHorzMode KtDbAttributeDefinition::horizontalMode() const
{
    return m_horizontalMode;
}
