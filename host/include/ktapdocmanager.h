#pragma once

#include "jxrxobject.h"
#include "kthost_export.h"

#include <memory>

class KtDbDatabase;

/// @brief An open drawing of the host application.
class KTHOST_EXPORT KtApDocument : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(KtApDocument)

public:
    KtApDocument();
    ~KtApDocument() override;
    /// The document's drawing; it lives as long as the document.
    KtDbDatabase* database() const;

private:
    std::unique_ptr<KtDbDatabase> m_database;
};

/**
 * @brief The host's documents and which one is current.
 *
 * There is always a current document; at start-up it holds an empty drawing.
 */
class KTHOST_EXPORT KtApDocManager : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(KtApDocManager)

public:
    KtApDocManager();
    ~KtApDocManager() override;

    KtApDocument* curDocument() const;
    /// Opens a new document with an empty drawing and makes it current.
    KtApDocument* newDocument();
    /// Makes @p document current; false (nothing changes) for a document this manager does not hold.
    bool setCurDocument(KtApDocument* document);
    /**
     * Closes @p document and deletes it with its drawing; ids into it then open
     * nothing. Closing the current one makes another current (a new one if it
     * was the last). False for a document this manager does not hold.
     */
    bool closeDocument(KtApDocument* document);
    int documentCount() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

/// The host's document manager.
KTHOST_EXPORT KtApDocManager* ktDocManagerPtr();

/// The drawing of the current document.
KTHOST_EXPORT KtDbDatabase* curDatabase();
