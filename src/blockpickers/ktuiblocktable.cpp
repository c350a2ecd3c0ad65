#include "ktuiblocktable_p.h"

#include <ktapdocmanager.h>
#include <ktdbdatabase.h>

namespace KtUiBlockTable {

bool hasBlock(const wchar_t* name, KtDbDatabase* db)
{
    if (!db)
        return false;
    KtDbBlockTable* table = nullptr;
    if (db->getSymbolTable(table, KtDb::kForRead) != Kt::eOk)
        return false;
    KtDbObjectId id;
    const bool found = table->getIdAt(name, id, false) == Kt::eOk;
    table->close();
    return found;
}

KtDbObjectId recordId(const wchar_t* name)
{
    KtDbDatabase* db = curDatabase();
    if (!db)
        return KtDbObjectId::kNull;
    KtDbBlockTable* table = nullptr;
    if (ktdbOpenObject(table, db->blockTableId(), KtDb::kForRead) != Kt::eOk)
        return KtDbObjectId::kNull;
    KtDbObjectId id;
    if (table->getIdAt(name, id, false) != Kt::eOk)
        id = KtDbObjectId::kNull;
    table->close();
    return id;
}

AddResult addRecord(KtDbBlockTableRecord* record, KtDbObjectId& id)
{
    KtDbDatabase* db = curDatabase();
    KtDbBlockTable* table = nullptr;
    if (!db || db->getSymbolTable(table, KtDb::kForWrite) != Kt::eOk)
        return AddResult::TableUnavailable;
    AddResult result = AddResult::Added;
    if (table->add(id, record) == Kt::eOk) {
        record->close();
    } else {
        delete record;
        id = KtDbObjectId::kNull;
        result = AddResult::Refused;
    }
    table->close();
    return result;
}

BlockBuilder::BlockBuilder(const wchar_t* name)
    : m_record(new KtDbBlockTableRecord)
{
    m_record->setName(name);
    m_record->setPathName(L"");
}

KtDbObjectId BlockBuilder::addToTable()
{
    KtDbObjectId id;
    // A refused record is deleted by addRecord(); one the table never saw stays ours.
    if (addRecord(m_record.get(), id) != AddResult::TableUnavailable)
        (void)m_record.release();
    return id;
}

} // namespace KtUiBlockTable
