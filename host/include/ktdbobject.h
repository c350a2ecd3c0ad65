#pragma once

#include "jxrxobject.h"
#include "kterrorstatus.h"
#include "kthost_export.h"

#include <cstdint>
#include <functional>

class KtDbDatabase;

/// KtDb: enumerations of the drawing database.
namespace KtDb {

/// How an object is opened.
enum OpenMode { kForRead = 0, kForWrite = 1 };

/// Line weights in hundredths of a millimetre, and the two inherited ones.
enum LineWeight : int {
    kLnWtByLayer = -1,
    kLnWtByBlock = -2,
    kLnWtByLwDefault = -3,
    kLnWt000 = 0,
    kLnWt005 = 5,
    kLnWt009 = 9,
    kLnWt013 = 13,
    kLnWt015 = 15,
    kLnWt018 = 18,
    kLnWt020 = 20,
    kLnWt025 = 25,
    kLnWt030 = 30,
    kLnWt035 = 35,
    kLnWt040 = 40,
    kLnWt050 = 50,
    kLnWt053 = 53,
    kLnWt060 = 60,
    kLnWt070 = 70,
    kLnWt080 = 80,
    kLnWt090 = 90,
    kLnWt100 = 100,
    kLnWt106 = 106,
    kLnWt120 = 120,
    kLnWt140 = 140,
    kLnWt158 = 158,
    kLnWt200 = 200,
    kLnWt211 = 211
};

/// Horizontal alignment of text and attribute definitions.
enum TextHorzMode {
    kTextLeft = 0,
    kTextCenter = 1,
    kTextRight = 2,
    kTextAlign = 3,
    kTextMid = 4,
    kTextFit = 5
};

} // namespace KtDb

/**
 * @brief The identity of a database object: its database and its 64-bit handle.
 *
 * A null id (kNull) names no object. Ids stay valid, and comparable, after
 * their object is erased or their database is gone; opening them then fails.
 */
class KTHOST_EXPORT KtDbObjectId
{
public:
    KtDbObjectId() = default;
    static const KtDbObjectId kNull;

    bool isNull() const { return m_handle == 0; }
    /// The object's handle in its database (0 for the null id).
    std::uint64_t handle() const { return m_handle; }
    /// The database the object was added to; null for the null id.
    KtDbDatabase* database() const { return m_database; }

    friend bool operator==(const KtDbObjectId& a, const KtDbObjectId& b)
    {
        return a.m_handle == b.m_handle
            && (a.m_handle == 0 || (a.m_database == b.m_database && a.m_serial == b.m_serial));
    }
    friend bool operator!=(const KtDbObjectId& a, const KtDbObjectId& b) { return !(a == b); }
    friend bool operator<(const KtDbObjectId& a, const KtDbObjectId& b)
    {
        if (a.m_serial != b.m_serial)
            return a.m_serial < b.m_serial;
        return a.m_handle < b.m_handle;
    }

private:
    friend class KtDbDatabase;
    KtDbObjectId(KtDbDatabase* database, std::uint64_t serial, std::uint64_t handle)
        : m_database(database)
        , m_serial(serial)
        , m_handle(handle)
    { }
    KtDbDatabase* m_database = nullptr;
    std::uint64_t m_serial = 0; // tells the database apart from a later one at the same address
    std::uint64_t m_handle = 0;
};

inline const KtDbObjectId KtDbObjectId::kNull{};

/**
 * @brief Base of everything stored in a drawing database.
 *
 * Objects are made on the host heap. Until added to a database an object
 * belongs to whoever made it and can be changed freely; once added it belongs
 * to the database, is reached by its id through ktdbOpenObject(), and is
 * changed only while open for write. Every open is ended with close().
 * Misuse gives an error status and changes nothing.
 */
class KTHOST_EXPORT KtDbObject : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(KtDbObject)

public:
    ~KtDbObject() override;

    KtDbObject(const KtDbObject&) = delete;
    KtDbObject& operator=(const KtDbObject&) = delete;

    /// The object's id; null until it is added to a database.
    KtDbObjectId objectId() const;
    /// The database it belongs to, or null.
    KtDbDatabase* database() const;
    /// The id of the object that owns it (a table, a block record), or null.
    KtDbObjectId ownerId() const;

    /// Ends one open; eWasNotOpen when the object is not open (a second close, say).
    Kt::ErrorStatus close();
    /// Marks the object erased (or unerased); it must be open for write.
    Kt::ErrorStatus erase(bool erasing = true);
    bool isErased() const;
    /// Open for read or write, or not in a database yet.
    bool isReadEnabled() const;
    /// Open for write, or not in a database yet.
    bool isWriteEnabled() const;

protected:
    KtDbObject();
    /// eOk when the object may be changed now, else eNotOpenForWrite.
    Kt::ErrorStatus checkWrite() const;
    /// Called when the object becomes part of @p database (its id is set by then).
    virtual void addedToDatabase(KtDbDatabase* database);

private:
    friend class KtDbDatabase;
    friend class KtDbSymbolTable;
    friend class KtDbBlockTableRecord;
    friend Kt::ErrorStatus ktdbOpenObject(KtDbObject*&, KtDbObjectId, KtDb::OpenMode, bool);
    KtDbObjectId m_id;
    KtDbObjectId m_owner;
    int m_readers = 0;
    bool m_writer = false;
    bool m_erased = false;
};

/**
 * Opens the object of @p id for read (any number of times) or for write (once,
 * and only while nobody reads it). @p object is null unless eOk is returned.
 * Errors: eNullObjectId, eUnknownObjectId (no such object, or its database is
 * gone), eWasErased (unless @p openErased), eWasOpenForWrite, eWasOpenForRead.
 */
KTHOST_EXPORT Kt::ErrorStatus ktdbOpenObject(
    KtDbObject*& object, KtDbObjectId id, KtDb::OpenMode mode, bool openErased = false);

/// Opens @p id as a @p T: like ktdbOpenObject(), and eNotThatKindOfClass (nothing left open) for another
/// class.
template <class T>
Kt::ErrorStatus ktdbOpenObject(T*& object, KtDbObjectId id, KtDb::OpenMode mode, bool openErased = false)
{
    object = nullptr;
    KtDbObject* opened = nullptr;
    const Kt::ErrorStatus status = ktdbOpenObject(opened, id, mode, openErased);
    if (status != Kt::eOk)
        return status;
    object = T::cast(opened);
    if (!object) {
        opened->close();
        return Kt::eNotThatKindOfClass;
    }
    return Kt::eOk;
}
