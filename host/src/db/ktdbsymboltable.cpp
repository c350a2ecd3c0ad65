#include "ktdbsymboltable.h"
#include "ktdbdatabase.h"

#include <QHash>
#include <QString>

#include <cwchar>

KT_DEFINE_RX_MEMBERS(KtDbSymbolTableRecord, KtDbObject)
KT_DEFINE_RX_MEMBERS(KtDbSymbolTable, KtDbObject)
KT_DEFINE_RX_MEMBERS(KtDbBlockTableRecord, KtDbSymbolTableRecord)
KT_DEFINE_RX_MEMBERS(KtDbBlockTable, KtDbSymbolTable)
KT_DEFINE_RX_MEMBERS(KtDbLayerTableRecord, KtDbSymbolTableRecord)
KT_DEFINE_RX_MEMBERS(KtDbLayerTable, KtDbSymbolTable)
KT_DEFINE_RX_MEMBERS(KtDbLinetypeTableRecord, KtDbSymbolTableRecord)
KT_DEFINE_RX_MEMBERS(KtDbLinetypeTable, KtDbSymbolTable)

#define KT_CHECK_WRITE()                                                                                     \
    if (const Kt::ErrorStatus status = checkWrite(); status != Kt::eOk)                                      \
    return status

namespace {

// The key a name is found by: case folded, so that "_DOT" finds "_Dot".
QString keyOf(const wchar_t* name)
{
    return QString::fromWCharArray(name).toCaseFolded();
}

} // namespace

// Names to records (hash, ignoring case) and the records in the order they came.
class KtDbSymbolTable::Index
{
public:
    QHash<QString, std::uint64_t> byName;
    std::vector<KtDbObjectId> order;
};

// --- KtDbSymbolTableRecord ---------------------------------------------------------

KtDbSymbolTableRecord::KtDbSymbolTableRecord() = default;
KtDbSymbolTableRecord::~KtDbSymbolTableRecord() = default;

Kt::ErrorStatus KtDbSymbolTableRecord::setName(const wchar_t* name)
{
    KT_CHECK_WRITE();
    if (!name)
        return Kt::eInvalidInput;
    KtDbDatabase* db = database();
    if (!db) {
        m_name = KtString(name); // checked when the record joins a table
        return Kt::eOk;
    }
    if (!KtDbSymbolTable::isValidName(name))
        return Kt::eInvalidSymbolTableName;
    auto* table = KtDbSymbolTable::cast(db->objectAt(ownerId().handle()));
    if (!table)
        return Kt::eNullObjectPointer;
    KtDbSymbolTable::Index& index = *table->m_index;
    const QString key = keyOf(name);
    const auto it = index.byName.constFind(key);
    if (it != index.byName.constEnd() && it.value() != objectId().handle()) {
        KtDbObject* other = db->objectAt(it.value());
        if (other && !other->isErased())
            return Kt::eDuplicateKey;
    }
    const QString oldKey = keyOf(m_name.c_str());
    if (index.byName.value(oldKey) == objectId().handle())
        index.byName.remove(oldKey);
    index.byName.insert(key, objectId().handle());
    m_name = KtString(name);
    return Kt::eOk;
}

Kt::ErrorStatus KtDbSymbolTableRecord::getName(KtString& name) const
{
    name = m_name;
    return Kt::eOk;
}

KtString KtDbSymbolTableRecord::name() const
{
    return m_name;
}

// --- KtDbSymbolTable ----------------------------------------------------------------

KtDbSymbolTable::KtDbSymbolTable()
    : m_index(std::make_unique<Index>())
{ }

KtDbSymbolTable::~KtDbSymbolTable() = default;

bool KtDbSymbolTable::isValidName(const wchar_t* name)
{
    if (!name || !*name)
        return false;
    for (const wchar_t* p = name; *p; ++p) {
        if (*p < 0x20 || *p == 0x7F || std::wcschr(L"<>/\\\":;?,|=`", *p))
            return false;
    }
    return true;
}

Kt::ErrorStatus KtDbSymbolTable::getIdAt(const wchar_t* name, KtDbObjectId& id, bool getErased) const
{
    id = KtDbObjectId::kNull;
    if (!name || !database())
        return Kt::eInvalidInput;
    const auto it = m_index->byName.constFind(keyOf(name));
    if (it != m_index->byName.constEnd()) {
        const KtDbObject* record = database()->objectAt(it.value());
        if (record && (getErased || !record->isErased())) {
            id = record->objectId();
            return Kt::eOk;
        }
    }
    if (getErased) {
        // Erased records may have given their name to a newer one: they are looked for in order.
        const QString key = keyOf(name);
        for (const KtDbObjectId& candidate : m_index->order) {
            auto* record = KtDbSymbolTableRecord::cast(database()->objectAt(candidate.handle()));
            if (record && record->isErased() && keyOf(record->m_name.c_str()) == key) {
                id = candidate;
                return Kt::eOk;
            }
        }
    }
    return Kt::eKeyNotFound;
}

bool KtDbSymbolTable::has(const wchar_t* name) const
{
    KtDbObjectId id;
    return getIdAt(name, id) == Kt::eOk;
}

bool KtDbSymbolTable::has(KtDbObjectId id) const
{
    const KtDbObject* record = database() && KtDbDatabase::liveDatabaseOf(id) == database()
        ? database()->objectAt(id.handle())
        : nullptr;
    return record && !record->isErased() && record->ownerId() == objectId();
}

Kt::ErrorStatus KtDbSymbolTable::newIterator(
    KtDbObjectIterator*& iterator, bool atBeginning, bool skipDeleted) const
{
    iterator = new KtDbObjectIterator(m_index->order);
    iterator->start(atBeginning, skipDeleted);
    return Kt::eOk;
}

int KtDbSymbolTable::recordCount() const
{
    return int(m_index->order.size());
}

Kt::ErrorStatus KtDbSymbolTable::addRecord(KtDbObjectId& id, KtDbSymbolTableRecord* record)
{
    id = KtDbObjectId::kNull;
    KT_CHECK_WRITE();
    if (!record)
        return Kt::eNullObjectPointer;
    if (!database() || !record->objectId().isNull() || !accepts(record))
        return Kt::eInvalidInput;
    if (!isValidName(record->m_name.c_str()))
        return Kt::eInvalidSymbolTableName;
    if (has(record->m_name.c_str()))
        return Kt::eDuplicateKey;
    id = database()->add(record, objectId());
    m_index->byName.insert(keyOf(record->m_name.c_str()), id.handle());
    m_index->order.push_back(id);
    // A new record is open for write until its maker closes it.
    record->m_writer = true;
    return Kt::eOk;
}

// --- Block table ---------------------------------------------------------------------

KtDbBlockTableRecord::KtDbBlockTableRecord() = default;

KtDbBlockTableRecord::~KtDbBlockTableRecord()
{
    // Entities appended before the record joined a database are still its own.
    for (KtDbEntity* entity : m_pending)
        delete entity;
}

Kt::ErrorStatus KtDbBlockTableRecord::setPathName(const wchar_t* path)
{
    KT_CHECK_WRITE();
    m_pathName = KtString(path ? path : L"");
    return Kt::eOk;
}

Kt::ErrorStatus KtDbBlockTableRecord::pathName(KtString& path) const
{
    path = m_pathName;
    return Kt::eOk;
}

Kt::ErrorStatus KtDbBlockTableRecord::setBlockInsertUnits(int units)
{
    KT_CHECK_WRITE();
    if (units < 0 || units > 24)
        return Kt::eInvalidInput;
    m_insertUnits = units;
    return Kt::eOk;
}

int KtDbBlockTableRecord::blockInsertUnits() const
{
    return m_insertUnits;
}

Kt::ErrorStatus KtDbBlockTableRecord::setIsFromExternalReference(bool external)
{
    KT_CHECK_WRITE();
    m_external = external;
    return Kt::eOk;
}

bool KtDbBlockTableRecord::isFromExternalReference() const
{
    return m_external;
}

Kt::ErrorStatus KtDbBlockTableRecord::setIsDependent(bool dependent)
{
    KT_CHECK_WRITE();
    m_dependent = dependent;
    return Kt::eOk;
}

bool KtDbBlockTableRecord::isDependent() const
{
    return m_dependent;
}

Kt::ErrorStatus KtDbBlockTableRecord::setIsAnonymous(bool anonymous)
{
    KT_CHECK_WRITE();
    m_anonymous = anonymous;
    return Kt::eOk;
}

bool KtDbBlockTableRecord::isAnonymous() const
{
    return m_anonymous;
}

Kt::ErrorStatus KtDbBlockTableRecord::appendKtDbEntity(KtDbObjectId& id, KtDbEntity* entity)
{
    id = KtDbObjectId::kNull;
    KT_CHECK_WRITE();
    if (!entity)
        return Kt::eNullObjectPointer;
    // An entity belongs to one block: one already in a database or appended elsewhere is refused.
    if (!entity->objectId().isNull() || entity->m_inBlock)
        return Kt::eInvalidInput;
    entity->m_inBlock = true;
    if (KtDbDatabase* db = database()) {
        id = db->add(entity, objectId());
        m_entities.push_back(id);
        entity->m_writer = true; // open for write until its maker closes it
        return Kt::eOk;
    }
    m_pending.push_back(entity);
    return Kt::eOk;
}

Kt::ErrorStatus KtDbBlockTableRecord::newIterator(
    KtDbObjectIterator*& iterator, bool atBeginning, bool skipDeleted) const
{
    iterator = new KtDbObjectIterator(m_entities);
    iterator->start(atBeginning, skipDeleted);
    return Kt::eOk;
}

int KtDbBlockTableRecord::entityCount() const
{
    return int(m_pending.size() + m_entities.size());
}

void KtDbBlockTableRecord::addedToDatabase(KtDbDatabase* database)
{
    // The entities come along, closed.
    for (KtDbEntity* entity : m_pending)
        m_entities.push_back(database->add(entity, objectId()));
    m_pending.clear();
}

KtDbBlockTable::KtDbBlockTable() = default;

Kt::ErrorStatus KtDbBlockTable::add(KtDbObjectId& id, KtDbBlockTableRecord* record)
{
    return addRecord(id, record);
}

bool KtDbBlockTable::accepts(const KtDbSymbolTableRecord* record) const
{
    return KtDbBlockTableRecord::cast(record) != nullptr;
}

// --- Layers and linetypes ----------------------------------------------------------------

KtDbLayerTableRecord::KtDbLayerTableRecord() = default;

Kt::ErrorStatus KtDbLayerTableRecord::setColorIndex(int index)
{
    KT_CHECK_WRITE();
    if (index < 1 || index > 255)
        return Kt::eInvalidInput;
    m_colorIndex = index;
    return Kt::eOk;
}

int KtDbLayerTableRecord::colorIndex() const
{
    return m_colorIndex;
}

KtDbLayerTable::KtDbLayerTable() = default;

Kt::ErrorStatus KtDbLayerTable::add(KtDbObjectId& id, KtDbLayerTableRecord* record)
{
    return addRecord(id, record);
}

bool KtDbLayerTable::accepts(const KtDbSymbolTableRecord* record) const
{
    return KtDbLayerTableRecord::cast(record) != nullptr;
}

KtDbLinetypeTableRecord::KtDbLinetypeTableRecord() = default;

Kt::ErrorStatus KtDbLinetypeTableRecord::setComments(const wchar_t* comments)
{
    KT_CHECK_WRITE();
    m_comments = KtString(comments ? comments : L"");
    return Kt::eOk;
}

KtString KtDbLinetypeTableRecord::comments() const
{
    return m_comments;
}

KtDbLinetypeTable::KtDbLinetypeTable() = default;

Kt::ErrorStatus KtDbLinetypeTable::add(KtDbObjectId& id, KtDbLinetypeTableRecord* record)
{
    return addRecord(id, record);
}

bool KtDbLinetypeTable::accepts(const KtDbSymbolTableRecord* record) const
{
    return KtDbLinetypeTableRecord::cast(record) != nullptr;
}
