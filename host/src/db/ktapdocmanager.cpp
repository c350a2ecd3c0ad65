#include "ktapdocmanager.h"

#include "ktdbdatabase.h"

#include <algorithm>
#include <memory>
#include <vector>

KT_DEFINE_RX_MEMBERS(KtApDocument, CJxRxObject)
KT_DEFINE_RX_MEMBERS(KtApDocManager, CJxRxObject)

KtApDocument::KtApDocument()
    : m_database(new KtDbDatabase)
{ }

KtApDocument::~KtApDocument() = default;

KtDbDatabase* KtApDocument::database() const
{
    return m_database.get();
}

class KtApDocManager::Private
{
public:
    std::vector<std::unique_ptr<KtApDocument>> documents;
    KtApDocument* current = nullptr;

    auto find(const KtApDocument* document)
    {
        return std::find_if(documents.begin(), documents.end(),
            [document](const std::unique_ptr<KtApDocument>& d) { return d.get() == document; });
    }
};

KtApDocManager::KtApDocManager()
    : d(std::make_unique<Private>())
{
    newDocument();
}

KtApDocManager::~KtApDocManager() = default;

KtApDocument* KtApDocManager::curDocument() const
{
    return d->current;
}

KtApDocument* KtApDocManager::newDocument()
{
    d->documents.push_back(std::make_unique<KtApDocument>());
    d->current = d->documents.back().get();
    return d->current;
}

bool KtApDocManager::setCurDocument(KtApDocument* document)
{
    if (!document || d->find(document) == d->documents.end())
        return false;
    d->current = document;
    return true;
}

bool KtApDocManager::closeDocument(KtApDocument* document)
{
    const auto it = d->find(document);
    if (!document || it == d->documents.end())
        return false;
    const bool wasCurrent = d->current == document;
    d->documents.erase(it);
    if (wasCurrent) {
        if (d->documents.empty())
            newDocument();
        else
            d->current = d->documents.back().get();
    }
    return true;
}

int KtApDocManager::documentCount() const
{
    return int(d->documents.size());
}

KtApDocManager* ktDocManagerPtr()
{
    // Made on first use; the documents live until the process ends.
    static KtApDocManager* manager = new KtApDocManager;
    return manager;
}

KtDbDatabase* curDatabase()
{
    return ktDocManagerPtr()->curDocument()->database();
}
