#include "ktdbdatabase.h"

#include <mutex>
#include <unordered_map>
#include <vector>

KT_DEFINE_RX_MEMBERS(KtDbDatabase, CJxRxObject)

namespace {

// The databases alive now, so that an id of a gone one opens nothing.
std::mutex g_liveMutex;
// Each database has a serial of its own, so that an id of a gone database
// never opens an object of a later one made at the same address.
std::unordered_map<const KtDbDatabase*, std::uint64_t>& liveDatabases()
{
    static std::unordered_map<const KtDbDatabase*, std::uint64_t> map;
    return map;
}
std::uint64_t g_lastSerial = 0;

} // namespace

class KtDbDatabase::Private
{
public:
    static constexpr std::uint64_t kFirstHandle = 0x20; // lower handles are left to the file formats
    // Handles are given out in sequence, so the object of a handle is found by
    // position: null once it is gone.
    std::vector<KtDbObject*> objects;
    std::size_t objectCount = 0;
    std::uint64_t nextHandle = kFirstHandle;
    std::uint64_t serial = 0;
    KtDbObjectId blockTable, layerTable, linetypeTable;
    KtDbObjectId layerZero, modelSpace, paperSpace;
    int insunits = 0;
    int measurement = 0;
};

KtDbDatabase::KtDbDatabase()
    : d(std::make_unique<Private>())
{
    {
        std::lock_guard<std::mutex> lock(g_liveMutex);
        d->serial = ++g_lastSerial;
        liveDatabases().emplace(this, d->serial);
    }
    d->blockTable = add(new KtDbBlockTable, KtDbObjectId::kNull);
    d->layerTable = add(new KtDbLayerTable, KtDbObjectId::kNull);
    d->linetypeTable = add(new KtDbLinetypeTable, KtDbObjectId::kNull);

    // The records every drawing has, added the way any record is.
    const auto addRecord = [this](KtDbObjectId table, KtDbSymbolTableRecord* record, const wchar_t* name) {
        record->setName(name);
        KtDbObject* opened = nullptr;
        ktdbOpenObject(opened, table, KtDb::kForWrite);
        KtDbObjectId id;
        static_cast<KtDbSymbolTable*>(opened)->addRecord(id, record);
        record->close();
        opened->close();
        return id;
    };
    for (const wchar_t* name : {L"ByBlock", L"ByLayer"})
        addRecord(d->linetypeTable, new KtDbLinetypeTableRecord, name);
    auto* continuous = new KtDbLinetypeTableRecord;
    continuous->setComments(L"Solid line");
    addRecord(d->linetypeTable, continuous, L"Continuous");
    d->layerZero = addRecord(d->layerTable, new KtDbLayerTableRecord, L"0");
    d->modelSpace = addRecord(d->blockTable, new KtDbBlockTableRecord, L"*Model_Space");
    d->paperSpace = addRecord(d->blockTable, new KtDbBlockTableRecord, L"*Paper_Space");
}

KtDbDatabase::~KtDbDatabase()
{
    {
        std::lock_guard<std::mutex> lock(g_liveMutex);
        liveDatabases().erase(this);
    }
    // No longer live: the objects' destructors leave the map alone.
    for (KtDbObject* object : d->objects)
        delete object;
}

bool KtDbDatabase::isLive(const KtDbDatabase* database)
{
    if (!database)
        return false;
    std::lock_guard<std::mutex> lock(g_liveMutex);
    return liveDatabases().count(database) != 0;
}

KtDbDatabase* KtDbDatabase::liveDatabaseOf(const KtDbObjectId& id)
{
    if (!id.m_database)
        return nullptr;
    std::lock_guard<std::mutex> lock(g_liveMutex);
    const auto it = liveDatabases().find(id.m_database);
    return it != liveDatabases().end() && it->second == id.m_serial ? id.m_database : nullptr;
}

KtDbObjectId KtDbDatabase::add(KtDbObject* object, KtDbObjectId owner)
{
    const KtDbObjectId id(this, d->serial, d->nextHandle++);
    object->m_id = id;
    object->m_owner = owner;
    d->objects.push_back(object);
    ++d->objectCount;
    object->addedToDatabase(this);
    return id;
}

KtDbObject* KtDbDatabase::objectAt(std::uint64_t handle) const
{
    const std::uint64_t index = handle - Private::kFirstHandle; // wraps for handles below the first
    return index < d->objects.size() ? d->objects[index] : nullptr;
}

void KtDbDatabase::forget(const KtDbObject* object)
{
    const std::uint64_t index = object->objectId().handle() - Private::kFirstHandle;
    if (index < d->objects.size() && d->objects[index] == object) {
        d->objects[index] = nullptr;
        --d->objectCount;
    }
}

KtDbObjectId KtDbDatabase::blockTableId() const
{
    return d->blockTable;
}

KtDbObjectId KtDbDatabase::layerTableId() const
{
    return d->layerTable;
}

KtDbObjectId KtDbDatabase::linetypeTableId() const
{
    return d->linetypeTable;
}

KtDbObjectId KtDbDatabase::layerZero() const
{
    return d->layerZero;
}

KtDbObjectId KtDbDatabase::modelSpaceId() const
{
    return d->modelSpace;
}

KtDbObjectId KtDbDatabase::paperSpaceId() const
{
    return d->paperSpace;
}

Kt::ErrorStatus KtDbDatabase::getSymbolTable(KtDbBlockTable*& table, KtDb::OpenMode mode)
{
    return ktdbOpenObject(table, d->blockTable, mode);
}

Kt::ErrorStatus KtDbDatabase::getSymbolTable(KtDbLayerTable*& table, KtDb::OpenMode mode)
{
    return ktdbOpenObject(table, d->layerTable, mode);
}

Kt::ErrorStatus KtDbDatabase::getSymbolTable(KtDbLinetypeTable*& table, KtDb::OpenMode mode)
{
    return ktdbOpenObject(table, d->linetypeTable, mode);
}

int KtDbDatabase::insunits() const
{
    return d->insunits;
}

void KtDbDatabase::setInsunits(int units)
{
    if (units >= 0 && units <= 24)
        d->insunits = units;
}

int KtDbDatabase::measurement() const
{
    return d->measurement;
}

void KtDbDatabase::setMeasurement(int measurement)
{
    if (measurement == 0 || measurement == 1)
        d->measurement = measurement;
}

std::uint64_t KtDbDatabase::handseed() const
{
    return d->nextHandle;
}

std::size_t KtDbDatabase::objectCount() const
{
    return d->objectCount;
}
