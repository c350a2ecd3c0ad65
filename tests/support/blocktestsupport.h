#pragma once

// Helpers shared by the block picker and drawing database tests: a block's
// entities as text, and a fresh current drawing per test.

#include <KtApDocManager>
#include <KtDbArc>
#include <KtDbAttributeDefinition>
#include <KtDbBlockTable>
#include <KtDbBlockTableRecord>
#include <KtDbCircle>
#include <KtDbDatabase>
#include <KtDbLine>
#include <KtDbPolyline>
#include <KtDbSolid>
#include <QStringList>
#include <ktstringconversion.h>

#include <memory>

inline QString num(double v)
{
    return QString::number(v, 'g', 15);
}

inline QString pt(const KtGePoint3d& p)
{
    return num(p.x) + QLatin1Char(',') + num(p.y) + (p.z != 0.0 ? QLatin1Char(',') + num(p.z) : QString());
}

/// The geometry of @p entity as one line of text.
inline QString describeGeometry(const KtDbEntity* entity)
{
    if (auto* line = KtDbLine::cast(entity))
        return QStringLiteral("LINE %1 %2").arg(pt(line->startPoint()), pt(line->endPoint()));
    if (auto* circle = KtDbCircle::cast(entity))
        return QStringLiteral("CIRCLE %1 r%2").arg(pt(circle->center()), num(circle->radius()));
    if (auto* arc = KtDbArc::cast(entity))
        return QStringLiteral("ARC %1 r%2 %3..%4")
            .arg(pt(arc->center()), num(arc->radius()), num(arc->startAngle()), num(arc->endAngle()));
    if (auto* polyline = KtDbPolyline::cast(entity)) {
        QString text = QStringLiteral("PLINE%1 w%2")
                           .arg(polyline->isClosed() ? QStringLiteral(" closed") : QString(),
                               num(polyline->constantWidth()));
        for (unsigned int i = 0; i < polyline->numVerts(); ++i) {
            double start = 0, end = 0;
            polyline->getWidthsAt(i, start, end);
            const KtGePoint2d p = polyline->pointAt(i);
            text += QStringLiteral(" [%1,%2 b%3 %4/%5]")
                        .arg(num(p.x), num(p.y), num(polyline->bulgeAt(i)), num(start), num(end));
        }
        return text;
    }
    if (auto* solid = KtDbSolid::cast(entity))
        return QStringLiteral("SOLID %1 %2 %3 %4")
            .arg(pt(solid->pointAt(0)), pt(solid->pointAt(1)), pt(solid->pointAt(2)), pt(solid->pointAt(3)));
    if (auto* attribute = KtDbAttributeDefinition::cast(entity))
        return QStringLiteral("ATTDEF %1 h%2 %3/%4/%5 mode%6")
            .arg(pt(attribute->alignmentPoint()), num(attribute->height()),
                ktutKtStringToQString(attribute->textString()), ktutKtStringToQString(attribute->tag()),
                ktutKtStringToQString(attribute->prompt()))
            .arg(int(attribute->horizontalMode()));
    return QStringLiteral("?");
}

/// Layer ("0" for the database's layer zero), colour index, linetype, line weight and transparency
/// method of @p entity.
inline QString describeProperties(const KtDbEntity* entity)
{
    const bool zero = entity->layerId() == curDatabase()->layerZero();
    return QStringLiteral("layer %1, colour %2, %3, weight %4, transparency %5")
        .arg(zero ? QStringLiteral("0") : QStringLiteral("other"))
        .arg(entity->colorIndex())
        .arg(ktutKtStringToQString(entity->linetype()))
        .arg(int(entity->lineWeight()))
        .arg(int(entity->transparency().method()));
}

/// One line per entity of the block @p id, in order; with @p properties each line also names them.
inline QStringList describeBlock(KtDbObjectId id, bool properties = false)
{
    QStringList lines;
    KtDbBlockTableRecord* block = nullptr;
    if (ktdbOpenObject(block, id, KtDb::kForRead) != Kt::eOk)
        return {QStringLiteral("(no block)")};
    KtDbObjectIterator* raw = nullptr;
    block->newIterator(raw);
    const std::unique_ptr<KtDbObjectIterator> it(raw);
    for (; !it->done(); it->step()) {
        KtDbObject* object = nullptr;
        if (it->getObject(object, KtDb::kForRead) != Kt::eOk)
            continue;
        const KtDbEntity* entity = KtDbEntity::cast(object);
        lines << (properties ? describeProperties(entity) : describeGeometry(entity));
        object->close();
    }
    block->close();
    return lines;
}

/// The number of blocks in @p db.
inline int blockCount(KtDbDatabase* db)
{
    KtDbBlockTable* table = nullptr;
    if (db->getSymbolTable(table, KtDb::kForRead) != Kt::eOk)
        return -1;
    const int count = table->recordCount();
    table->close();
    return count;
}

/// A new, empty current drawing for one test; the previous one is closed with it.
struct FreshDrawing
{
    explicit FreshDrawing(int measurement = 0)
    {
        KtApDocManager* manager = ktDocManagerPtr();
        KtApDocument* old = manager->curDocument();
        m_document = manager->newDocument();
        manager->closeDocument(old);
        db()->setMeasurement(measurement);
    }
    KtDbDatabase* db() const { return m_document->database(); }

    KtApDocument* m_document;
};
