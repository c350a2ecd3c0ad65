#include "blocktestsupport.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Adds a block named @p name; its id, null when the table refuses it with @p status.
KtDbObjectId addBlock(KtDbDatabase* db, const wchar_t* name, Kt::ErrorStatus* status = nullptr)
{
    KtDbBlockTable* table = nullptr;
    if (db->getSymbolTable(table, KtDb::kForWrite) != Kt::eOk)
        return KtDbObjectId::kNull;
    auto* record = new KtDbBlockTableRecord;
    record->setName(name);
    KtDbObjectId id;
    const Kt::ErrorStatus added = table->add(id, record);
    if (status)
        *status = added;
    if (added == Kt::eOk)
        record->close();
    else
        delete record; // a refused record is still its maker's
    table->close();
    return id;
}

/// The names of the records of @p db's table of type @p Table, as iterators give them (skipping erased ones).
template <typename Table>
QStringList tableNames(KtDbDatabase* db)
{
    QStringList names;
    Table* table = nullptr;
    if (db->getSymbolTable(table, KtDb::kForRead) != Kt::eOk)
        return names;
    KtDbObjectIterator* raw = nullptr;
    table->newIterator(raw);
    const std::unique_ptr<KtDbObjectIterator> it(raw);
    for (; !it->done(); it->step()) {
        KtDbObject* object = nullptr;
        if (it->getObject(object, KtDb::kForRead) != Kt::eOk)
            continue;
        names << ktutKtStringToQString(KtDbSymbolTableRecord::cast(object)->name());
        object->close();
    }
    table->close();
    return names;
}

} // namespace

class KtDbDatabaseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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
    }

    void tablesAndErasedRecords()
    {
        FreshDrawing drawing;
        KtDbDatabase* db = drawing.db();
        QCOMPARE(tableNames<KtDbLayerTable>(db), QStringList{"0"});
        QCOMPARE(tableNames<KtDbLinetypeTable>(db), (QStringList{"ByBlock", "ByLayer", "Continuous"}));
        // The pickers look blocks up and list them skipping erased records.
        const KtDbObjectId old = addBlock(drawing.db(), L"Shed");
        KtDbObject* object = nullptr;
        QCOMPARE(ktdbOpenObject(object, old, KtDb::kForWrite), Kt::eOk);
        QCOMPARE(object->erase(), Kt::eOk);
        object->close();
        QCOMPARE(ktdbOpenObject(object, old, KtDb::kForRead), Kt::eWasErased);
        QCOMPARE(tableNames<KtDbBlockTable>(db), (QStringList{"*Model_Space", "*Paper_Space"}));

        KtDbBlockTable* table = nullptr;
        drawing.db()->getSymbolTable(table, KtDb::kForRead);
        KtDbObjectId found;
        QVERIFY(!table->has(L"shed"));
        QCOMPARE(table->getIdAt(L"SHED", found, false), Kt::eKeyNotFound);
        QVERIFY(found.isNull());
        table->close();

        // The name is free again.
        const KtDbObjectId renewed = addBlock(drawing.db(), L"Shed");
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
        QTest::newRow("with ;") << "a;b" << int(Kt::eInvalidSymbolTableName);
    }

    void addNames()
    {
        QFETCH(QString, name);
        QFETCH(int, status);
        FreshDrawing drawing;
        Kt::ErrorStatus added = Kt::eOk;
        QCOMPARE(addBlock(drawing.db(), name.toStdWString().c_str(), &added).isNull(), status != Kt::eOk);
        QCOMPARE(int(added), status);
        QCOMPARE(blockCount(drawing.db()), status == Kt::eOk ? 3 : 2);
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

        // A device that takes nothing: in one piece, and in many written beside the formatting.
        if (QFileInfo::exists(QStringLiteral("/dev/full"))) {
            const std::wstring good = (dir.path() + QStringLiteral("/a.dxf")).toStdWString();
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
