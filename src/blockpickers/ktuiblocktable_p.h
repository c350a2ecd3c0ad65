#pragma once

// Shared by the block pickers: the block table of the current drawing, and
// building a block definition from entities made on the host heap.

#include <ktdbsymboltable.h>

#include <memory>

class KtDbDatabase;

namespace KtUiBlockTable {

/// True when @p db's block table can be read and holds a block named @p name.
bool hasBlock(const wchar_t* name, KtDbDatabase* db);
/// The id of the current drawing's block @p name; null when there is none.
KtDbObjectId recordId(const wchar_t* name);

enum class AddResult {
    Added, ///< the record is the drawing's now
    TableUnavailable, ///< the table could not be opened for write; the record is the caller's still
    Refused ///< the table refused the record, which has been deleted
};
/// Adds @p record to the current drawing's block table; closes it on success.
AddResult addRecord(KtDbBlockTableRecord* record, KtDbObjectId& id);

/**
 * A block definition under construction. Entities appended to it belong to
 * the record; a record that never reaches the table is deleted with the builder.
 */
class BlockBuilder
{
public:
    explicit BlockBuilder(const wchar_t* name);

    KtDbBlockTableRecord* record() const { return m_record.get(); }
    /// Appends @p entity to the record; it is the record's from then on.
    template <class Entity>
    Entity* append(std::unique_ptr<Entity> entity)
    {
        KtDbObjectId id;
        if (m_record->appendKtDbEntity(id, entity.get()) != Kt::eOk)
            return nullptr;
        return entity.release();
    }
    /// Adds the record to the current drawing; the null id when that fails.
    KtDbObjectId addToTable();

private:
    std::unique_ptr<KtDbBlockTableRecord> m_record;
};

} // namespace KtUiBlockTable
