#include "blockpreview.h"

#include <KtDbArc>
#include <KtDbAttributeDefinition>
#include <KtDbBlockTableRecord>
#include <KtDbCircle>
#include <KtDbLine>
#include <KtDbPolyline>
#include <KtDbSolid>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>
#include <ktstringconversion.h>

#include <memory>

namespace {

QPointF at(const KtGePoint3d& p)
{
    return QPointF(p.x, p.y);
}

/// The circle a polyline segment with a bulge lies on, and where on it the segment runs.
struct BulgeArc
{
    QPointF centre;
    double radius;
    double start; // radians, counter-clockwise in drawing units
    double sweep; // signed: positive counter-clockwise
};

BulgeArc bulgeArc(QPointF from, QPointF to, double bulge)
{
    const double angle = 4.0 * std::atan(bulge); // signed included angle
    const QPointF chord = to - from;
    const double length = std::hypot(chord.x(), chord.y());
    const double radius = length / (2.0 * std::sin(std::abs(angle) / 2.0));
    // The centre lies left of the chord for a positive bulge, past it beyond a half circle.
    const double toCentre = radius * std::cos(std::abs(angle) / 2.0);
    const QPointF left(-chord.y() / length, chord.x() / length);
    const QPointF centre = (from + to) / 2.0 + left * toCentre * (bulge > 0 ? 1.0 : -1.0);
    return {centre, radius, std::atan2(from.y() - centre.y(), from.x() - centre.x()), angle};
}

QRectF circleBox(QPointF centre, double radius)
{
    return QRectF(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
}

// QPainterPath angles are counter-clockwise in degrees with y down; the view
// flips y, so a drawing angle a is -a there.
void appendSegment(QPainterPath& path, QPointF from, QPointF to, double bulge)
{
    if (bulge == 0.0 || from == to) {
        path.lineTo(to);
        return;
    }
    const BulgeArc arc = bulgeArc(from, to, bulge);
    path.arcTo(
        circleBox(arc.centre, arc.radius), -qRadiansToDegrees(arc.start), -qRadiansToDegrees(arc.sweep));
}

/// The area a wide segment covers: a quadrilateral, or a ring sector of the mean width.
QPainterPath wideSegment(QPointF from, QPointF to, double bulge, double startWidth, double endWidth)
{
    QPainterPath area;
    if (bulge == 0.0 || from == to) {
        const QLineF line(from, to);
        if (line.length() == 0)
            return area;
        const QPointF n = QPointF(-line.dy(), line.dx()) / line.length();
        area.addPolygon(QPolygonF(QVector<QPointF>{from + n * startWidth / 2, to + n * endWidth / 2,
            to - n * endWidth / 2, from - n * startWidth / 2}));
        area.closeSubpath();
        return area;
    }
    const BulgeArc arc = bulgeArc(from, to, bulge);
    const double half = (startWidth + endWidth) / 4;
    const QRectF outer = circleBox(arc.centre, arc.radius + half);
    const QRectF inner = circleBox(arc.centre, std::max(0.0, arc.radius - half));
    const double start = -qRadiansToDegrees(arc.start), sweep = -qRadiansToDegrees(arc.sweep);
    area.arcMoveTo(outer, start);
    area.arcTo(outer, start, sweep);
    area.arcTo(inner, start + sweep, -sweep);
    area.closeSubpath();
    return area;
}

/// Paints one entity in drawing units (y up) when @p painter is set; returns its bounds.
QRectF paintEntity(QPainter* painter, const KtDbEntity* e)
{
    if (painter) {
        painter->setPen(QPen(Qt::black, 0)); // cosmetic: one pixel at any scale
        painter->setBrush(Qt::NoBrush);
    }
    if (auto* line = KtDbLine::cast(e)) {
        const QLineF l(at(line->startPoint()), at(line->endPoint()));
        if (painter)
            painter->drawLine(l);
        return QRectF(l.p1(), l.p2()).normalized();
    }
    if (auto* circle = KtDbCircle::cast(e)) {
        const double r = circle->radius();
        const QRectF box(at(circle->center()) - QPointF(r, r), QSizeF(2 * r, 2 * r));
        if (painter)
            painter->drawEllipse(box);
        return box;
    }
    if (auto* arc = KtDbArc::cast(e)) {
        const double r = arc->radius();
        const QRectF box(at(arc->center()) - QPointF(r, r), QSizeF(2 * r, 2 * r));
        double span = arc->endAngle() - arc->startAngle();
        while (span <= 0)
            span += 2 * M_PI;
        QPainterPath path;
        path.arcMoveTo(box, -qRadiansToDegrees(arc->startAngle()));
        path.arcTo(box, -qRadiansToDegrees(arc->startAngle()), -qRadiansToDegrees(span));
        if (painter)
            painter->drawPath(path);
        return path.boundingRect();
    }
    if (auto* polyline = KtDbPolyline::cast(e)) {
        const unsigned int n = polyline->numVerts();
        if (n == 0)
            return {};
        const unsigned int segments = polyline->isClosed() ? n : n - 1;
        QPainterPath centreLine(QPointF(polyline->pointAt(0).x, polyline->pointAt(0).y));
        QPainterPath area; // of the wide segments
        area.setFillRule(Qt::WindingFill);
        for (unsigned int i = 0; i < segments; ++i) {
            const KtGePoint2d a = polyline->pointAt(i), b = polyline->pointAt((i + 1) % n);
            appendSegment(centreLine, QPointF(a.x, a.y), QPointF(b.x, b.y), polyline->bulgeAt(i));
            double start = 0, end = 0;
            polyline->getWidthsAt(i, start, end);
            if (start < 0)
                start = polyline->constantWidth();
            if (end < 0)
                end = polyline->constantWidth();
            if (start > 0 || end > 0)
                area.addPath(
                    wideSegment(QPointF(a.x, a.y), QPointF(b.x, b.y), polyline->bulgeAt(i), start, end));
        }
        if (painter) {
            if (area.isEmpty()) {
                painter->drawPath(centreLine);
            } else {
                painter->setPen(Qt::NoPen);
                painter->setBrush(Qt::black);
                painter->drawPath(area);
            }
        }
        return area.isEmpty() ? centreLine.boundingRect() : area.boundingRect();
    }
    if (auto* solid = KtDbSolid::cast(e)) {
        const QPolygonF outline(QVector<QPointF>{
            at(solid->pointAt(0)), at(solid->pointAt(1)), at(solid->pointAt(3)), at(solid->pointAt(2))});
        if (painter) {
            painter->setBrush(Qt::black);
            painter->drawPolygon(outline);
        }
        return outline.boundingRect();
    }
    if (auto* attdef = KtDbAttributeDefinition::cast(e)) {
        const double h = attdef->height();
        const QPointF p = at(attdef->alignmentPoint());
        const QString tag = ktutKtStringToQString(attdef->tag());
        const QRectF box(p.x() - 4 * h, p.y(), 8 * h, h);
        if (painter) {
            painter->save();
            // Text upright: flip back, then size the font to the attribute's height.
            painter->translate(p);
            painter->scale(1, -1);
            QFont font = painter->font();
            font.setPixelSize(100);
            painter->setFont(font);
            painter->scale(h / 100.0, h / 100.0);
            painter->setPen(QPen(Qt::darkBlue, 0));
            painter->drawText(QRectF(-1000, -100, 2000, 100), Qt::AlignHCenter | Qt::AlignBottom, tag);
            painter->restore();
        }
        return box;
    }
    return {};
}

template <class Visit>
void forEachEntity(KtDbObjectId block, Visit visit)
{
    KtDbBlockTableRecord* record = nullptr;
    if (ktdbOpenObject(record, block, KtDb::kForRead) != Kt::eOk)
        return;
    KtDbObjectIterator* raw = nullptr;
    record->newIterator(raw);
    const std::unique_ptr<KtDbObjectIterator> it(raw);
    for (; !it->done(); it->step()) {
        KtDbObject* object = nullptr;
        if (it->getObject(object, KtDb::kForRead) != Kt::eOk)
            continue;
        if (const KtDbEntity* entity = KtDbEntity::cast(object))
            visit(entity);
        object->close();
    }
    record->close();
}

} // namespace

BlockPreview::BlockPreview(QWidget* parent)
    : QWidget(parent)
{
    setMinimumSize(220, 160);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
}

void BlockPreview::setBlock(KtDbObjectId id, const QString& placeholder)
{
    m_block = id;
    m_placeholder = placeholder;
    update();
}

void BlockPreview::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_block.isNull()) {
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_placeholder);
        return;
    }

    // Bounds first (measured without painting), then the drawing fitted with a margin.
    QRectF bounds;
    int entities = 0;
    forEachEntity(m_block, [&](const KtDbEntity* e) {
        bounds |= paintEntity(nullptr, e);
        ++entities;
    });
    if (entities == 0) {
        painter.drawText(rect(), Qt::AlignCenter, tr("(an empty block)"));
        return;
    }
    if (bounds.width() <= 0 || bounds.height() <= 0)
        bounds = bounds.adjusted(-0.5, -0.5, 0.5, 0.5);
    const QRectF area = QRectF(rect()).adjusted(16, 16, -16, -16);
    const double scale = std::min(area.width() / bounds.width(), area.height() / bounds.height());
    painter.translate(area.center());
    painter.scale(scale, -scale);
    painter.translate(-bounds.center());

    // The block's origin, where a dimension line's end point goes.
    painter.setPen(QPen(Qt::red, 0, Qt::DotLine));
    const double cross = 0.15 * std::max(bounds.width(), bounds.height());
    painter.drawLine(QPointF(-cross, 0), QPointF(cross, 0));
    painter.drawLine(QPointF(0, -cross), QPointF(0, cross));

    forEachEntity(m_block, [&](const KtDbEntity* e) { paintEntity(&painter, e); });
}
