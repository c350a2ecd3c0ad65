// Writes a drawing made by the block pickers (and a block using every other
// property the writer knows) as DXF, beside a JSON account of the database
// taken through its own getters, its keys named as ezdxf names the DXF
// attributes. The "dxf_ezdxf" test then reads the file back with ezdxf and
// compares; without KT_DXF_OUT_DIR the files go to a temporary folder and only
// this side runs.

#include "blocktestsupport.h"

#include <KtUiArrowComboBox>
#include <KtUiPredefBlockComboBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QJsonArray point(const KtGePoint3d& p)
{
    return {p.x, p.y, p.z};
}

QJsonObject entityJson(const KtDbEntity* e)
{
    QJsonObject o;
    KtDbSymbolTableRecord* layer = nullptr;
    if (ktdbOpenObject(layer, e->layerId(), KtDb::kForRead) == Kt::eOk) {
        o["layer"] = ktutKtStringToQString(layer->name());
        layer->close();
    }
    const KtCmColor color = e->color();
    // An RGB colour goes with index 7 for readers that know no true colour.
    o["color"] = color.colorMethod() == KtCmColor::kByColor ? 7 : color.colorIndex();
    if (color.colorMethod() == KtCmColor::kByColor)
        o["true_color"] = qint64(color.rgb());
    o["linetype"] = ktutKtStringToQString(e->linetype());
    o["lineweight"] = int(e->lineWeight());
    const KtCmTransparency t = e->transparency();
    o["transparency"] = t.isByBlock()              ? 0x01000000
        : t.method() == KtCmTransparency::kByAlpha ? 0x02000000 | t.alpha()
                                                   : -1;
    if (auto* line = KtDbLine::cast(e)) {
        o["type"] = "LINE";
        o["start"] = point(line->startPoint());
        o["end"] = point(line->endPoint());
    } else if (auto* circle = KtDbCircle::cast(e)) {
        o["type"] = "CIRCLE";
        o["center"] = point(circle->center());
        o["radius"] = circle->radius();
    } else if (auto* arc = KtDbArc::cast(e)) {
        o["type"] = "ARC";
        o["center"] = point(arc->center());
        o["radius"] = arc->radius();
        o["start_angle"] = qRadiansToDegrees(arc->startAngle());
        o["end_angle"] = qRadiansToDegrees(arc->endAngle());
    } else if (auto* polyline = KtDbPolyline::cast(e)) {
        o["type"] = "LWPOLYLINE";
        o["closed"] = polyline->isClosed();
        QJsonArray vertices;
        for (unsigned int i = 0; i < polyline->numVerts(); ++i) {
            double start = 0, end = 0;
            polyline->getWidthsAt(i, start, end);
            const double constant = polyline->constantWidth();
            const KtGePoint2d p = polyline->pointAt(i);
            vertices.append(QJsonArray{
                p.x, p.y, start < 0 ? constant : start, end < 0 ? constant : end, polyline->bulgeAt(i)});
        }
        o["vertices"] = vertices;
    } else if (auto* solid = KtDbSolid::cast(e)) {
        o["type"] = "SOLID";
        for (int i = 0; i < 4; ++i)
            o[QStringLiteral("vtx%1").arg(i)] = point(solid->pointAt(i));
    } else if (auto* attdef = KtDbAttributeDefinition::cast(e)) {
        o["type"] = "ATTDEF";
        o["insert"] = point(attdef->position());
        o["align_point"] = point(attdef->alignmentPoint());
        o["height"] = attdef->height();
        o["text"] = ktutKtStringToQString(attdef->textString());
        o["tag"] = ktutKtStringToQString(attdef->tag());
        o["prompt"] = ktutKtStringToQString(attdef->prompt());
        o["halign"] = int(attdef->horizontalMode());
    }
    return o;
}

QJsonObject drawingJson(KtDbDatabase* db)
{
    QJsonObject blocks;
    KtDbBlockTable* table = nullptr;
    db->getSymbolTable(table, KtDb::kForRead);
    KtDbObjectIterator* raw = nullptr;
    table->newIterator(raw);
    const std::unique_ptr<KtDbObjectIterator> it(raw);
    for (; !it->done(); it->step()) {
        KtDbObject* object = nullptr;
        it->getObject(object, KtDb::kForRead);
        auto* block = KtDbBlockTableRecord::cast(object);
        KtDbObjectIterator* rawEntities = nullptr;
        block->newIterator(rawEntities);
        const std::unique_ptr<KtDbObjectIterator> entities(rawEntities);
        QJsonArray list;
        for (; !entities->done(); entities->step()) {
            KtDbObject* entity = nullptr;
            entities->getObject(entity, KtDb::kForRead);
            list.append(entityJson(KtDbEntity::cast(entity)));
            entity->close();
        }
        blocks[ktutKtStringToQString(block->name())]
            = QJsonObject{{"insunits", block->blockInsertUnits()}, {"entities", list}};
        object->close();
    }
    table->close();
    return {{"measurement", db->measurement()}, {"insunits", db->insunits()}, {"blocks", blocks}};
}

/// A block with the properties the pickers do not use: a layer of its own, RGB, alpha, a weight, widths.
void addMixedBlock(KtDbDatabase* db)
{
    KtDbLayerTable* layers = nullptr;
    QCOMPARE(db->getSymbolTable(layers, KtDb::kForWrite), Kt::eOk);
    auto* walls = new KtDbLayerTableRecord;
    walls->setName(L"Walls");
    walls->setColorIndex(3);
    KtDbObjectId wallsId;
    QCOMPARE(layers->add(wallsId, walls), Kt::eOk);
    walls->close();
    layers->close();

    auto* block = new KtDbBlockTableRecord;
    block->setName(L"Mixed 混合");
    KtDbObjectId id;
    auto* line = new KtDbLine(KtGePoint3d(0, 0, 0), KtGePoint3d(10, 5, 0));
    line->setLayer(wallsId);
    KtCmColor orange;
    orange.setRGB(255, 128, 0);
    line->setColor(orange);
    KtCmTransparency half;
    half.setAlpha(127);
    line->setTransparency(half);
    line->setLineWeight(KtDb::kLnWt050);
    line->setLinetype(L"continuous");
    block->appendKtDbEntity(id, line);
    auto* polyline = new KtDbPolyline;
    polyline->addVertexAt(0, KtGePoint2d(0, 0), 0.5, 0.1, 0.2);
    polyline->addVertexAt(1, KtGePoint2d(3, 0), 0.0);
    polyline->addVertexAt(2, KtGePoint2d(3, 3), -0.25, 0.0, 0.4);
    polyline->setColorIndex(5);
    block->appendKtDbEntity(id, polyline);
    QVERIFY(KtUiArrowComboBox::AddRecordToBlockTable(block, id));
}

} // namespace

class KtDbDxfOutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writeDrawing()
    {
        QTemporaryDir temporary;
        QString dir = qEnvironmentVariable("KT_DXF_OUT_DIR");
        if (dir.isEmpty())
            dir = temporary.path();
        // The read-back checks every drawing in the folder: none of an earlier run may stay.
        QVERIFY(QDir(dir).removeRecursively() && QDir().mkpath(dir));

        // Both units differ from a new drawing's, so that the header is seen to carry them.
        FreshDrawing drawing(1);
        drawing.db()->setInsunits(4);
        for (int index = 1; index < 20; ++index)
            QVERIFY(!KtUiArrowComboBox::GenerateArrowHeadBlock(index).isNull());
        for (int index = 0; index < 6; ++index)
            QVERIFY(!KtUiPredefBlockComboBox::GeneratePredefHeadBlock(index).isNull());
        addMixedBlock(drawing.db());
        QCOMPARE(blockCount(drawing.db()), 2 + 19 + 6 + 1);

        const QString base = dir + QStringLiteral("/metric");
        const std::wstring dxf = (base + QStringLiteral(".dxf")).toStdWString();
        QCOMPARE(drawing.db()->dxfOut(dxf.c_str()), Kt::eOk);
        QFile json(base + QStringLiteral(".json"));
        QVERIFY(json.open(QIODevice::WriteOnly));
        json.write(QJsonDocument(drawingJson(drawing.db())).toJson());
    }
};

QTEST_MAIN(KtDbDxfOutTest)
#include "tst_ktdbdxfout.moc"
