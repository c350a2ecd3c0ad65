#include "blocktestsupport.h"

#include <QTemporaryDir>
#include <QtTest>
#include <ktheap.h>

namespace {

KtDbObjectId addBlock(KtDbDatabase* db, const wchar_t* name)
{
    KtDbBlockTable* table = nullptr;
    if (db->getSymbolTable(table, KtDb::kForWrite) != Kt::eOk)
        return KtDbObjectId::kNull;
    auto* record = new KtDbBlockTableRecord;
    record->setName(name);
    KtDbObjectId id;
    if (table->add(id, record) == Kt::eOk)
        record->close();
    else
        delete record;
    table->close();
    return id;
}

QStringList tableNames(KtDbSymbolTable* table, bool skipDeleted = true)
{
    QStringList names;
    KtDbObjectIterator* raw = nullptr;
    table->newIterator(raw, true, skipDeleted);
    const std::unique_ptr<KtDbObjectIterator> it(raw);
    for (; !it->done(); it->step(true, skipDeleted)) {
        KtDbObject* object = nullptr;
        if (it->getObject(object, KtDb::kForRead) != Kt::eOk)
            continue;
        names << ktutKtStringToQString(KtDbSymbolTableRecord::cast(object)->name());
        object->close();
    }
    return names;
}

} // namespace

class KtDbDatabaseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newDrawing()
    {
        FreshDrawing drawing;
        KtDbDatabase* db = curDatabase();
        QCOMPARE(db, drawing.db());
        QCOMPARE(db->measurement(), 0);
        QCOMPARE(db->insunits(), 0);
        KtDbBlockTable* blocks = nullptr;
        QCOMPARE(db->getSymbolTable(blocks, KtDb::kForRead), Kt::eOk);
        QCOMPARE(tableNames(blocks), (QStringList{"*Model_Space", "*Paper_Space"}));
        QVERIFY(blocks->has(L"*MODEL_SPACE"));
        blocks->close();
        KtDbLayerTable* layers = nullptr;
        QCOMPARE(db->getSymbolTable(layers, KtDb::kForRead), Kt::eOk);
        QCOMPARE(tableNames(layers), QStringList{"0"});
        KtDbObjectId zero;
        QCOMPARE(layers->getIdAt(L"0", zero), Kt::eOk);
        QCOMPARE(zero, db->layerZero());
        layers->close();
        KtDbLinetypeTable* linetypes = nullptr;
        QCOMPARE(db->getSymbolTable(linetypes, KtDb::kForRead), Kt::eOk);
        QCOMPARE(tableNames(linetypes), (QStringList{"ByBlock", "ByLayer", "Continuous"}));
        linetypes->close();
    }

    void openMisuse()
    {
        FreshDrawing drawing;
        const KtDbObjectId id = drawing.db()->modelSpaceId();
        KtDbObject* object = nullptr;
        QCOMPARE(ktdbOpenObject(object, KtDbObjectId::kNull, KtDb::kForRead), Kt::eNullObjectId);
        QVERIFY(!object);

        KtDbObject* writer = nullptr;
        QCOMPARE(ktdbOpenObject(writer, id, KtDb::kForWrite), Kt::eOk);
        QCOMPARE(ktdbOpenObject(object, id, KtDb::kForWrite), Kt::eWasOpenForWrite);
        QCOMPARE(ktdbOpenObject(object, id, KtDb::kForRead), Kt::eWasOpenForWrite);
        QCOMPARE(writer->close(), Kt::eOk);
        QCOMPARE(writer->close(), Kt::eWasNotOpen);

        KtDbBlockTableRecord* reader = nullptr;
        QCOMPARE(ktdbOpenObject(reader, id, KtDb::kForRead), Kt::eOk);
        QCOMPARE(ktdbOpenObject(object, id, KtDb::kForWrite), Kt::eWasOpenForRead);
        QCOMPARE(reader->setPathName(L"x"), Kt::eNotOpenForWrite);
        QCOMPARE(reader->setName(L"Renamed"), Kt::eNotOpenForWrite);
        KtDbObjectId entityId;
        QCOMPARE(reader->appendKtDbEntity(entityId, nullptr), Kt::eNotOpenForWrite);
        QCOMPARE(ktutKtStringToQString(reader->name()), QStringLiteral("*Model_Space"));
        reader->close();

        // The wrong class is refused and the object is not left open.
        KtDbCircle* circle = nullptr;
        QCOMPARE(ktdbOpenObject(circle, id, KtDb::kForWrite), Kt::eNotThatKindOfClass);
        QVERIFY(!circle);
        QCOMPARE(ktdbOpenObject(writer, id, KtDb::kForWrite), Kt::eOk);
        writer->close();

        // A table open for read cannot add.
        KtDbBlockTable* table = nullptr;
        QCOMPARE(drawing.db()->getSymbolTable(table, KtDb::kForRead), Kt::eOk);
        auto record = std::make_unique<KtDbBlockTableRecord>();
        record->setName(L"Late");
        KtDbObjectId added;
        QCOMPARE(table->add(added, record.get()), Kt::eNotOpenForWrite);
        QVERIFY(added.isNull());
        KtDbBlockTable* second = nullptr;
        QCOMPARE(drawing.db()->getSymbolTable(second, KtDb::kForWrite), Kt::eWasOpenForRead);
        QVERIFY(!second);
        table->close();
    }

    void erasedRecords()
    {
        FreshDrawing drawing;
        const KtDbObjectId old = addBlock(drawing.db(), L"Part");
        KtDbObject* object = nullptr;
        QCOMPARE(ktdbOpenObject(object, old, KtDb::kForRead), Kt::eOk);
        QCOMPARE(object->erase(), Kt::eNotOpenForWrite);
        object->close();
        QCOMPARE(ktdbOpenObject(object, old, KtDb::kForWrite), Kt::eOk);
        QCOMPARE(object->erase(), Kt::eOk);
        object->close();
        QCOMPARE(ktdbOpenObject(object, old, KtDb::kForRead), Kt::eWasErased);
        QCOMPARE(ktdbOpenObject(object, old, KtDb::kForRead, true), Kt::eOk);
        object->close();

        KtDbBlockTable* table = nullptr;
        drawing.db()->getSymbolTable(table, KtDb::kForRead);
        KtDbObjectId found;
        QVERIFY(!table->has(L"part"));
        QCOMPARE(table->getIdAt(L"PART", found, false), Kt::eKeyNotFound);
        QVERIFY(found.isNull());
        QCOMPARE(table->getIdAt(L"PART", found, true), Kt::eOk);
        QCOMPARE(found, old);
        QCOMPARE(tableNames(table).size(), 2);
        QCOMPARE(tableNames(table, false).size(), 3);
        table->close();

        // The name is free again; the erased record stays reachable by its id only.
        const KtDbObjectId renewed = addBlock(drawing.db(), L"Part");
        QVERIFY(!renewed.isNull());
        QVERIFY(renewed != old);
    }

    void idsOfClosedDrawings()
    {
        // Ids of closed drawings open nothing, even when a later drawing takes the same memory.
        std::vector<KtDbObjectId> stale;
        for (int i = 0; i < 20; ++i) {
            FreshDrawing drawing;
            stale.push_back(addBlock(drawing.db(), L"Same"));
            for (const KtDbObjectId& id : stale) {
                KtDbObject* object = nullptr;
                const Kt::ErrorStatus expected = &id == &stale.back() ? Kt::eOk : Kt::eUnknownObjectId;
                QCOMPARE(ktdbOpenObject(object, id, KtDb::kForRead), expected);
                if (object)
                    object->close();
            }
        }
        QCOMPARE(ktDocManagerPtr()->documentCount(), 1);
    }

    void addNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("status");
        QTest::newRow("plain") << "Door 2" << int(Kt::eOk);
        QTest::newRow("duplicate, other case") << "*MODEL_SPACE" << int(Kt::eDuplicateKey);
        QTest::newRow("empty") << "" << int(Kt::eInvalidSymbolTableName);
        QTest::newRow("tab") << "a\tb" << int(Kt::eInvalidSymbolTableName);
        QTest::newRow("delete") << "a\x7f" << int(Kt::eInvalidSymbolTableName);
        for (const QChar c : QStringLiteral("<>/\\\":;?,|=`"))
            QTest::newRow(qPrintable(QStringLiteral("with %1").arg(c)))
                << QStringLiteral("a%1b").arg(c) << int(Kt::eInvalidSymbolTableName);
    }

    void addNames()
    {
        QFETCH(QString, name);
        QFETCH(int, status);
        FreshDrawing drawing;
        const long long heap = ktHeapLiveBlocks();
        KtDbBlockTable* table = nullptr;
        QCOMPARE(drawing.db()->getSymbolTable(table, KtDb::kForWrite), Kt::eOk);
        auto* record = new KtDbBlockTableRecord;
        const std::wstring wide = name.toStdWString();
        record->setName(wide.c_str());
        KtDbObjectId id;
        QCOMPARE(int(table->add(id, record)), status);
        QCOMPARE(id.isNull(), status != Kt::eOk);
        if (status == Kt::eOk)
            record->close();
        else
            delete record; // a refused record is still its maker's
        QCOMPARE(table->recordCount(), status == Kt::eOk ? 3 : 2);
        table->close();
        if (status != Kt::eOk)
            QCOMPARE(ktHeapLiveBlocks(), heap);
    }

    void entityBadInput()
    {
        FreshDrawing drawing;
        auto line = std::make_unique<KtDbLine>();
        QCOMPARE(line->setLinetype(nullptr), Kt::eInvalidInput);
        QCOMPARE(line->setLinetype(L""), Kt::eInvalidInput);
        QCOMPARE(line->setColorIndex(257), Kt::eInvalidInput);
        QCOMPARE(line->colorIndex(), 256);
        auto polyline = std::make_unique<KtDbPolyline>();
        QCOMPARE(polyline->addVertexAt(1, KtGePoint2d(0, 0)), Kt::eInvalidInput);
        QCOMPARE(polyline->setConstantWidth(-1.0), Kt::eInvalidInput);
        QCOMPARE(polyline->numVerts(), 0u);
        auto solid = std::make_unique<KtDbSolid>();
        QCOMPARE(solid->setPointAt(4, KtGePoint3d(1, 1, 0)), Kt::eInvalidInput);

        // An entity of a block is changed only while open for write.
        KtDbObjectId blockId = addBlock(drawing.db(), L"Holder");
        KtDbBlockTableRecord* block = nullptr;
        QCOMPARE(ktdbOpenObject(block, blockId, KtDb::kForWrite), Kt::eOk);
        KtDbObjectId lineId;
        QCOMPARE(block->appendKtDbEntity(lineId, line.get()), Kt::eOk);
        KtDbLine* added = line.release();
        added->close();
        QCOMPARE(block->appendKtDbEntity(lineId, added), Kt::eInvalidInput); // already in the drawing
        block->close();
        QCOMPARE(added->setStartPoint(KtGePoint3d(5, 5, 0)), Kt::eNotOpenForWrite);
        QCOMPARE(describeBlock(blockId), QStringList{"LINE 0,0 0,0"});
    }

    void dxfOutErrors()
    {
        FreshDrawing drawing;
        QCOMPARE(drawing.db()->dxfOut(nullptr), Kt::eInvalidInput);
        QTemporaryDir dir;
        const std::wstring missing = (dir.path() + QStringLiteral("/no/such/dir/a.dxf")).toStdWString();
        QCOMPARE(drawing.db()->dxfOut(missing.c_str()), Kt::eFileAccessError);
        const std::wstring good = (dir.path() + QStringLiteral("/a.dxf")).toStdWString();
        QCOMPARE(drawing.db()->dxfOut(good.c_str()), Kt::eOk);
        QVERIFY(QFileInfo(dir.path() + QStringLiteral("/a.dxf")).size() > 1000);

        // A device that takes nothing: in one piece, and in many written beside the formatting.
        if (QFileInfo::exists(QStringLiteral("/dev/full"))) {
            QCOMPARE(drawing.db()->dxfOut(L"/dev/full"), Kt::eFileAccessError);
            for (int i = 0; i < 2000; ++i)
                addBlock(drawing.db(), (L"Block" + std::to_wstring(i)).c_str());
            QCOMPARE(drawing.db()->dxfOut(L"/dev/full"), Kt::eFileAccessError);
            QCOMPARE(drawing.db()->dxfOut(good.c_str()), Kt::eOk);
            QVERIFY(QFileInfo(dir.path() + QStringLiteral("/a.dxf")).size() > 256 * 1024);
        }
    }
};

QTEST_MAIN(KtDbDatabaseTest)
#include "tst_ktdbdatabase.moc"
