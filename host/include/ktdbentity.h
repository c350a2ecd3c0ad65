#pragma once

#include "ktcmcolor.h"
#include "ktdbobject.h"
#include "ktgegeometry.h"
#include "ktstring.h"

#include <vector>

/**
 * @brief A drawable object of a block: its layer, colour, linetype, line
 * weight and transparency.
 *
 * A new entity is on no layer until it joins a database (then on layer "0"),
 * BYLAYER in colour, linetype, line weight and transparency. The "sub-entity"
 * arguments are accepted for the host's signature; these entities have none.
 * Setters return eNotOpenForWrite for a database entity not open for write.
 */
class KTHOST_EXPORT KtDbEntity : public KtDbObject
{
    KT_DECLARE_RX_MEMBERS(KtDbEntity)

public:
    ~KtDbEntity() override;

    /// The layer of @p layer's id; eInvalidInput for a null id.
    Kt::ErrorStatus setLayer(KtDbObjectId layer, bool doSubents = true, bool allowHiddenLayer = false);
    KtDbObjectId layerId() const;
    /// 0 BYBLOCK, 256 BYLAYER, 1 to 255 a table colour; eInvalidInput otherwise.
    Kt::ErrorStatus setColorIndex(int colorIndex, bool doSubents = true);
    int colorIndex() const;
    Kt::ErrorStatus setColor(const KtCmColor& color, bool doSubents = true);
    KtCmColor color() const;
    /**
     * The linetype by name, compared ignoring case with the database's
     * linetypes once the entity is in one ("BYBLOCK" becomes "ByBlock").
     * eInvalidInput for an empty name.
     */
    Kt::ErrorStatus setLinetype(const wchar_t* name, bool doSubents = true);
    KtString linetype() const;
    Kt::ErrorStatus setLineWeight(KtDb::LineWeight weight, bool doSubents = true);
    KtDb::LineWeight lineWeight() const;
    Kt::ErrorStatus setTransparency(const KtCmTransparency& transparency, bool doSubents = true);
    KtCmTransparency transparency() const;

protected:
    KtDbEntity();
    void addedToDatabase(KtDbDatabase* database) override;

private:
    friend class KtDbBlockTableRecord;
    friend class KtDbDxfWriter;
    bool m_inBlock = false; // appended to a block record
    KtDbObjectId m_layer;
    KtCmColor m_color;
    KtString m_linetype;
    KtDb::LineWeight m_lineWeight = KtDb::kLnWtByLayer;
    KtCmTransparency m_transparency;
};

/// A straight segment.
class KTHOST_EXPORT KtDbLine : public KtDbEntity
{
    KT_DECLARE_RX_MEMBERS(KtDbLine)

public:
    KtDbLine();
    KtDbLine(const KtGePoint3d& start, const KtGePoint3d& end);
    Kt::ErrorStatus setStartPoint(const KtGePoint3d& point);
    Kt::ErrorStatus setEndPoint(const KtGePoint3d& point);
    KtGePoint3d startPoint() const;
    KtGePoint3d endPoint() const;

private:
    KtGePoint3d m_start, m_end;
};

/// A full circle.
class KTHOST_EXPORT KtDbCircle : public KtDbEntity
{
    KT_DECLARE_RX_MEMBERS(KtDbCircle)

public:
    KtDbCircle();
    Kt::ErrorStatus setCenter(const KtGePoint3d& center);
    /// A zero normal is refused (eInvalidInput).
    Kt::ErrorStatus setNormal(const KtGeVector3d& normal);
    /// Radii must be positive (eInvalidInput otherwise).
    Kt::ErrorStatus setRadius(double radius);
    KtGePoint3d center() const;
    KtGeVector3d normal() const;
    double radius() const;

private:
    KtGePoint3d m_center;
    KtGeVector3d m_normal = KtGeVector3d::kZAxis;
    double m_radius = 1.0;
};

/// A circular arc, counter-clockwise from the start to the end angle (radians).
class KTHOST_EXPORT KtDbArc : public KtDbEntity
{
    KT_DECLARE_RX_MEMBERS(KtDbArc)

public:
    KtDbArc();
    Kt::ErrorStatus setCenter(const KtGePoint3d& center);
    Kt::ErrorStatus setNormal(const KtGeVector3d& normal);
    Kt::ErrorStatus setRadius(double radius);
    Kt::ErrorStatus setStartAngle(double radians);
    Kt::ErrorStatus setEndAngle(double radians);
    KtGePoint3d center() const;
    KtGeVector3d normal() const;
    double radius() const;
    double startAngle() const;
    double endAngle() const;

private:
    KtGePoint3d m_center;
    KtGeVector3d m_normal = KtGeVector3d::kZAxis;
    double m_radius = 1.0;
    double m_startAngle = 0.0;
    double m_endAngle = 0.0;
};

/**
 * @brief A two-dimensional polyline of straight and arc segments (bulges)
 * with start and end widths per vertex.
 */
class KTHOST_EXPORT KtDbPolyline : public KtDbEntity
{
    KT_DECLARE_RX_MEMBERS(KtDbPolyline)

public:
    KtDbPolyline();
    /**
     * Inserts a vertex before @p index (the vertex count appends). Widths of
     * -1 mean "the polyline's constant width". eInvalidInput for an index past the end.
     */
    Kt::ErrorStatus addVertexAt(unsigned int index, const KtGePoint2d& point, double bulge = 0.0,
        double startWidth = -1.0, double endWidth = -1.0, int vertexIdentifier = 0);
    /// Gives every segment the width @p width (at least 0).
    Kt::ErrorStatus setConstantWidth(double width);
    Kt::ErrorStatus setClosed(bool closed);
    Kt::ErrorStatus setNormal(const KtGeVector3d& normal);

    unsigned int numVerts() const;
    KtGePoint2d pointAt(unsigned int index) const;
    double bulgeAt(unsigned int index) const;
    /// The start and end width of the segment from vertex @p index; -1 stands for the constant width.
    void getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
    int vertexIdentifierAt(unsigned int index) const;
    /// The constant width, or -1 when the segments' widths differ.
    double constantWidth() const;
    bool isClosed() const;
    KtGeVector3d normal() const;

private:
    struct Vertex
    {
        KtGePoint2d point;
        double bulge;
        double startWidth;
        double endWidth;
        int identifier;
    };
    std::vector<Vertex> m_vertices;
    double m_constantWidth = 0.0;
    bool m_closed = false;
    KtGeVector3d m_normal = KtGeVector3d::kZAxis;
};

/**
 * @brief A filled triangle or quadrilateral; corners 2 and 3 are crosswise
 * (the outline runs 0, 1, 3, 2). A triangle repeats its third corner.
 */
class KTHOST_EXPORT KtDbSolid : public KtDbEntity
{
    KT_DECLARE_RX_MEMBERS(KtDbSolid)

public:
    KtDbSolid();
    /// Corner 0 to 3; eInvalidInput for another index.
    Kt::ErrorStatus setPointAt(int corner, const KtGePoint3d& point);
    KtGePoint3d pointAt(int corner) const;

private:
    KtGePoint3d m_corners[4];
};

/**
 * @brief The definition of an attribute of a block: the tag the inserted
 * block's attributes are known by, the prompt for their value and the default text.
 */
class KTHOST_EXPORT KtDbAttributeDefinition : public KtDbEntity
{
    KT_DECLARE_RX_MEMBERS(KtDbAttributeDefinition)

public:
    KtDbAttributeDefinition();
    Kt::ErrorStatus setPosition(const KtGePoint3d& point);
    Kt::ErrorStatus setAlignmentPoint(const KtGePoint3d& point);
    /// Heights must be positive (eInvalidInput otherwise).
    Kt::ErrorStatus setHeight(double height);
    Kt::ErrorStatus setTextString(const wchar_t* text);
    /// Tags may not be empty or hold spaces (eInvalidInput).
    Kt::ErrorStatus setTag(const wchar_t* tag);
    Kt::ErrorStatus setPrompt(const wchar_t* prompt);
    Kt::ErrorStatus setHorizontalMode(KtDb::TextHorzMode mode);

    KtGePoint3d position() const;
    KtGePoint3d alignmentPoint() const;
    double height() const;
    KtString textString() const;
    KtString tag() const;
    KtString prompt() const;
    KtDb::TextHorzMode horizontalMode() const;

private:
    KtGePoint3d m_position, m_alignment;
    double m_height = 1.0;
    KtString m_text, m_tag, m_prompt;
    KtDb::TextHorzMode m_horizontalMode = KtDb::kTextLeft;
};
