#pragma once

#include "ktdbsymboltable.h"

#include <cstddef>
#include <cstdint>
#include <memory>

/**
 * @brief A drawing: its objects by handle, its block, layer and linetype
 * tables, and the header values the pickers use.
 *
 * A new drawing holds the blocks "*Model_Space" and "*Paper_Space", layer
 * "0" and the linetypes "ByBlock", "ByLayer" and "Continuous"; it is
 * imperial ($MEASUREMENT 0) with unitless insertion ($INSUNITS 0). The
 * database owns every object added to it and deletes them with itself.
 */
class KTHOST_EXPORT KtDbDatabase : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(KtDbDatabase)

public:
    KtDbDatabase();
    ~KtDbDatabase() override;

    KtDbDatabase(const KtDbDatabase&) = delete;
    KtDbDatabase& operator=(const KtDbDatabase&) = delete;

    KtDbObjectId blockTableId() const;
    KtDbObjectId layerTableId() const;
    KtDbObjectId linetypeTableId() const;
    /// Layer "0".
    KtDbObjectId layerZero() const;
    KtDbObjectId modelSpaceId() const;
    KtDbObjectId paperSpaceId() const;

    /// Opens the block table (see ktdbOpenObject()); close it after use.
    Kt::ErrorStatus getSymbolTable(KtDbBlockTable*& table, KtDb::OpenMode mode);
    Kt::ErrorStatus getSymbolTable(KtDbLayerTable*& table, KtDb::OpenMode mode);
    Kt::ErrorStatus getSymbolTable(KtDbLinetypeTable*& table, KtDb::OpenMode mode);

    /// Insertion units ($INSUNITS): 0 unitless, 1 inches, 4 millimetres, ...
    int insunits() const;
    void setInsunits(int units);
    /// 0 imperial, 1 metric ($MEASUREMENT); other values are ignored.
    int measurement() const;
    void setMeasurement(int measurement);

    /// The next handle to be given out.
    std::uint64_t handseed() const;
    /// Number of objects, erased ones included.
    std::size_t objectCount() const;

    /**
     * Writes the drawing as an ASCII DXF of release 2010 (AC1024) in UTF-8.
     * eInvalidInput for a null name, eFileAccessError when it cannot be written.
     */
    Kt::ErrorStatus dxfOut(const wchar_t* fileName) const;

    /// Whether @p database is a live database (ids can name gone ones).
    static bool isLive(const KtDbDatabase* database);
    /// The database @p id was made in while it lives; null once it is gone.
    static KtDbDatabase* liveDatabaseOf(const KtDbObjectId& id);

private:
    friend class KtDbObject;
    friend class KtDbSymbolTable;
    friend class KtDbSymbolTableRecord;
    friend class KtDbBlockTableRecord;
    friend class KtDbObjectIterator;
    friend class KtDbDxfWriter;
    friend Kt::ErrorStatus ktdbOpenObject(KtDbObject*&, KtDbObjectId, KtDb::OpenMode, bool);

    /// Makes @p object part of the drawing, owned by @p owner; returns its new id.
    KtDbObjectId add(KtDbObject* object, KtDbObjectId owner);
    KtDbObject* objectAt(std::uint64_t handle) const;
    void forget(const KtDbObject* object);

    class Private;
    std::unique_ptr<Private> d;
};
