#include "ktdbobject.h"
#include "ktdbdatabase.h"

KT_DEFINE_RX_MEMBERS(KtDbObject, CJxRxObject)

KtDbObject::KtDbObject() = default;

KtDbObject::~KtDbObject()
{
    // An object deleted while its database lives (by mistake) leaves no dangling entry behind.
    if (KtDbDatabase* database = KtDbDatabase::liveDatabaseOf(m_id))
        database->forget(this);
}

KtDbObjectId KtDbObject::objectId() const
{
    return m_id;
}

KtDbDatabase* KtDbObject::database() const
{
    return m_id.database();
}

KtDbObjectId KtDbObject::ownerId() const
{
    return m_owner;
}

Kt::ErrorStatus KtDbObject::close()
{
    if (m_writer) {
        m_writer = false;
        return Kt::eOk;
    }
    if (m_readers > 0) {
        --m_readers;
        return Kt::eOk;
    }
    return Kt::eWasNotOpen;
}

Kt::ErrorStatus KtDbObject::erase(bool erasing)
{
    if (const Kt::ErrorStatus status = checkWrite(); status != Kt::eOk)
        return status;
    if (m_id.isNull())
        return Kt::eInvalidInput; // only objects of a database can be erased
    m_erased = erasing;
    return Kt::eOk;
}

bool KtDbObject::isErased() const
{
    return m_erased;
}

bool KtDbObject::isReadEnabled() const
{
    return m_id.isNull() || m_writer || m_readers > 0;
}

bool KtDbObject::isWriteEnabled() const
{
    return m_id.isNull() || m_writer;
}

Kt::ErrorStatus KtDbObject::checkWrite() const
{
    return isWriteEnabled() ? Kt::eOk : Kt::eNotOpenForWrite;
}

void KtDbObject::addedToDatabase(KtDbDatabase*)
{ }

Kt::ErrorStatus ktdbOpenObject(KtDbObject*& object, KtDbObjectId id, KtDb::OpenMode mode, bool openErased)
{
    object = nullptr;
    if (id.isNull())
        return Kt::eNullObjectId;
    KtDbDatabase* database = KtDbDatabase::liveDatabaseOf(id);
    if (!database)
        return Kt::eUnknownObjectId;
    KtDbObject* found = database->objectAt(id.handle());
    if (!found)
        return Kt::eUnknownObjectId;
    if (found->m_erased && !openErased)
        return Kt::eWasErased;
    if (found->m_writer)
        return Kt::eWasOpenForWrite;
    if (mode == KtDb::kForWrite) {
        if (found->m_readers > 0)
            return Kt::eWasOpenForRead;
        found->m_writer = true;
    } else {
        ++found->m_readers;
    }
    object = found;
    return Kt::eOk;
}

KtDbObjectIterator::KtDbObjectIterator(std::vector<KtDbObjectId> ids)
    : m_ids(std::move(ids))
{ }

bool KtDbObjectIterator::skipped(int index) const
{
    KtDbObject* object = nullptr;
    const KtDbObjectId& id = m_ids[std::size_t(index)];
    KtDbDatabase* database = KtDbDatabase::liveDatabaseOf(id);
    if (!database)
        return true;
    object = database->objectAt(id.handle());
    return !object || object->isErased();
}

void KtDbObjectIterator::start(bool atBeginning, bool skipDeleted)
{
    m_index = atBeginning ? 0 : int(m_ids.size()) - 1;
    while (skipDeleted && !done() && skipped(m_index))
        m_index += atBeginning ? 1 : -1;
}

bool KtDbObjectIterator::done() const
{
    return m_index < 0 || m_index >= int(m_ids.size());
}

void KtDbObjectIterator::step(bool forward, bool skipDeleted)
{
    if (done())
        return;
    do
        m_index += forward ? 1 : -1;
    while (skipDeleted && !done() && skipped(m_index));
}

Kt::ErrorStatus KtDbObjectIterator::getId(KtDbObjectId& id) const
{
    if (done())
        return Kt::eInvalidInput;
    id = m_ids[std::size_t(m_index)];
    return Kt::eOk;
}

Kt::ErrorStatus KtDbObjectIterator::getObject(KtDbObject*& object, KtDb::OpenMode mode) const
{
    object = nullptr;
    KtDbObjectId id;
    if (const Kt::ErrorStatus status = getId(id); status != Kt::eOk)
        return status;
    return ktdbOpenObject(object, id, mode, true);
}
