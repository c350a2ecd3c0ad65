#pragma once

// PDF underlay files on Poppler.

#include "ktdbunderlay.h"

#include <QSize>

#include <memory>
#include <vector>

namespace Poppler {
class Document;
}

class KtDbPdfFile;

/// One page of a PDF underlay file.
class KtDbPdfPage : public KtDbUnderlayItem
{
public:
    KtDbPdfPage(const KtDbPdfFile* file, int index, const KtString& name);

    KtString name() const override;
    KtDbUnderlayImage* image() const override;
    Kt::ErrorStatus getImage(KtDbUnderlayImage*& result, int maxSize) const override;

private:
    KtDbUnderlayImage* render(const QSize& box) const;

    const KtDbPdfFile* m_file;
    int m_index;
    KtString m_name;
};

/// A PDF opened with Poppler, antialiased text and graphics.
class KtDbPdfFile : public KtDbUnderlayFile
{
public:
    /// Opens @p path; the status says why not (missing, not a PDF, locked).
    static Kt::ErrorStatus open(const KtString& path, const KtString& password, KtDbPdfFile*& file);
    ~KtDbPdfFile() override;

    int getItemCount() const override;
    Kt::ErrorStatus getItem(int index, KtDbUnderlayItem*& item) override;
    void setPreviewSize(const QSize& size) override;
    QSize previewSize() const override;

    Poppler::Document* document() const { return m_document.get(); }

private:
    explicit KtDbPdfFile(std::unique_ptr<Poppler::Document> document);

    std::unique_ptr<Poppler::Document> m_document;
    std::vector<std::unique_ptr<KtDbPdfPage>> m_pages;
    QSize m_previewSize{256, 256};
};
