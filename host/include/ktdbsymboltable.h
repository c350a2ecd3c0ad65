#pragma once

#include "ktdbentity.h"
#include "ktdbobject.h"
#include "ktstring.h"

#include <memory>
#include <vector>

class KtDbSymbolTable;

/// @brief A named record of a symbol table (block, layer, linetype).
class KTHOST_EXPORT KtDbSymbolTableRecord : public KtDbObject
{
    KT_DECLARE_RX_MEMBERS(KtDbSymbolTableRecord)

public:
    ~KtDbSymbolTableRecord() override;

    /**
     * Names the record. In a table the name must stay valid and unique there
     * (eInvalidSymbolTableName, eDuplicateKey); names compare ignoring case.
     */
    Kt::ErrorStatus setName(const wchar_t* name);
    Kt::ErrorStatus getName(KtString& name) const;
    KtString name() const;

protected:
    KtDbSymbolTableRecord();

private:
    friend class KtDbSymbolTable;
    KtString m_name;
};

/// Walks the records of a symbol table or the entities of a block, in the order they were added.
class KTHOST_EXPORT KtDbObjectIterator
{
public:
    /// Goes to the first (or last) element; erased ones are passed over when @p skipDeleted.
    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    /// Moves on (forwards or backwards).
    void step(bool forward = true, bool skipDeleted = true);
    /// The current element's id; eInvalidInput when done().
    Kt::ErrorStatus getId(KtDbObjectId& id) const;
    /// Opens the current element (see ktdbOpenObject()).
    Kt::ErrorStatus getObject(KtDbObject*& object, KtDb::OpenMode mode) const;

private:
    friend class KtDbSymbolTable;
    friend class KtDbBlockTableRecord;
    explicit KtDbObjectIterator(std::vector<KtDbObjectId> ids);
    bool skipped(int index) const;
    std::vector<KtDbObjectId> m_ids;
    int m_index = 0;
};

/**
 * @brief A table of named records: blocks, layers or linetypes.
 *
 * Look-up by name is by hash, ignoring case. Records are added while the
 * table is open for write; a record then belongs to the database.
 */
class KTHOST_EXPORT KtDbSymbolTable : public KtDbObject
{
    KT_DECLARE_RX_MEMBERS(KtDbSymbolTable)

public:
    ~KtDbSymbolTable() override;

    /// The record named @p name (ignoring case); eKeyNotFound when none (erased ones only with @p getErased).
    Kt::ErrorStatus getIdAt(const wchar_t* name, KtDbObjectId& id, bool getErased = false) const;
    /// Whether a record of that name is in the table, not erased.
    bool has(const wchar_t* name) const;
    bool has(KtDbObjectId id) const;
    /// A new iterator over the records, for the caller to delete.
    Kt::ErrorStatus newIterator(
        KtDbObjectIterator*& iterator, bool atBeginning = true, bool skipDeleted = true) const;
    /// Number of records, erased ones included.
    int recordCount() const;

    /// True when @p name can name a record: not empty, no control characters, none of <>/\":;?,|=`.
    static bool isValidName(const wchar_t* name);

protected:
    KtDbSymbolTable();
    /**
     * Adds @p record: the table must be open for write, the record new and
     * validly, uniquely named. On success the record is open for write (close
     * it); on failure it is still the caller's.
     */
    Kt::ErrorStatus addRecord(KtDbObjectId& id, KtDbSymbolTableRecord* record);
    virtual bool accepts(const KtDbSymbolTableRecord* record) const = 0;

private:
    friend class KtDbSymbolTableRecord;
    friend class KtDbDatabase;
    class Index;
    std::unique_ptr<Index> m_index;
};

/**
 * @brief A block definition: its entities and how it was made.
 *
 * Entities appended before the record is in a database join it with the
 * record (closed); appended afterwards they are open for write.
 */
class KTHOST_EXPORT KtDbBlockTableRecord : public KtDbSymbolTableRecord
{
    KT_DECLARE_RX_MEMBERS(KtDbBlockTableRecord)

public:
    KtDbBlockTableRecord();
    ~KtDbBlockTableRecord() override;

    Kt::ErrorStatus setPathName(const wchar_t* path);
    Kt::ErrorStatus pathName(KtString& path) const;
    /// The units of the block's geometry, as $INSUNITS numbers them.
    Kt::ErrorStatus setBlockInsertUnits(int units);
    int blockInsertUnits() const;
    Kt::ErrorStatus setIsFromExternalReference(bool external);
    bool isFromExternalReference() const;
    Kt::ErrorStatus setIsDependent(bool dependent);
    bool isDependent() const;
    /// Anonymous only when set so: a name starting with "*" does not make a block anonymous.
    Kt::ErrorStatus setIsAnonymous(bool anonymous);
    bool isAnonymous() const;

    /// Appends @p entity (new, not in any block); @p id is set once the entity is in a database.
    Kt::ErrorStatus appendKtDbEntity(KtDbObjectId& id, KtDbEntity* entity);
    /// An iterator over the entities in a database, for the caller to delete.
    Kt::ErrorStatus newIterator(
        KtDbObjectIterator*& iterator, bool atBeginning = true, bool skipDeleted = true) const;
    /// Number of entities, those not yet in a database included.
    int entityCount() const;

protected:
    void addedToDatabase(KtDbDatabase* database) override;

private:
    friend class KtDbDatabase;
    friend class KtDbDxfWriter;
    KtString m_pathName;
    int m_insertUnits = 0;
    bool m_external = false;
    bool m_dependent = false;
    bool m_anonymous = false;
    std::vector<KtDbEntity*> m_pending; // appended before the record joined a database; owned
    std::vector<KtDbObjectId> m_entities;
};

/// @brief The block table: "*Model_Space", "*Paper_Space" and the block definitions.
class KTHOST_EXPORT KtDbBlockTable : public KtDbSymbolTable
{
    KT_DECLARE_RX_MEMBERS(KtDbBlockTable)

public:
    KtDbBlockTable();
    /// Adds a block definition (see KtDbSymbolTable::addRecord()).
    Kt::ErrorStatus add(KtDbObjectId& id, KtDbBlockTableRecord* record);

protected:
    bool accepts(const KtDbSymbolTableRecord* record) const override;
};

/// @brief A layer.
class KTHOST_EXPORT KtDbLayerTableRecord : public KtDbSymbolTableRecord
{
    KT_DECLARE_RX_MEMBERS(KtDbLayerTableRecord)

public:
    KtDbLayerTableRecord();
    Kt::ErrorStatus setColorIndex(int index);
    int colorIndex() const;

private:
    int m_colorIndex = 7;
};

/// @brief The layer table; every drawing has layer "0".
class KTHOST_EXPORT KtDbLayerTable : public KtDbSymbolTable
{
    KT_DECLARE_RX_MEMBERS(KtDbLayerTable)

public:
    KtDbLayerTable();
    Kt::ErrorStatus add(KtDbObjectId& id, KtDbLayerTableRecord* record);

protected:
    bool accepts(const KtDbSymbolTableRecord* record) const override;
};

/// @brief A linetype (continuous ones only in this stand-in).
class KTHOST_EXPORT KtDbLinetypeTableRecord : public KtDbSymbolTableRecord
{
    KT_DECLARE_RX_MEMBERS(KtDbLinetypeTableRecord)

public:
    KtDbLinetypeTableRecord();
    Kt::ErrorStatus setComments(const wchar_t* comments);
    KtString comments() const;

private:
    KtString m_comments;
};

/// @brief The linetype table; every drawing has "ByBlock", "ByLayer" and "Continuous".
class KTHOST_EXPORT KtDbLinetypeTable : public KtDbSymbolTable
{
    KT_DECLARE_RX_MEMBERS(KtDbLinetypeTable)

public:
    KtDbLinetypeTable();
    Kt::ErrorStatus add(KtDbObjectId& id, KtDbLinetypeTableRecord* record);

protected:
    bool accepts(const KtDbSymbolTableRecord* record) const override;
};
