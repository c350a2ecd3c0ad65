#pragma once

#include "jxrxobject.h"
#include "kterrorstatus.h"
#include "kthost_export.h"
#include "ktstring.h"

#include <QSize>

/**
 * @file
 * Underlay documents: a file of pages (a PDF, or a multi-page raster image),
 * its page items and their images. A file owns its page items; image objects
 * belong to the caller, who gives them back with release().
 */

/// How the pixels of a KtDbUnderlayImage are laid out: bit positions and counts per channel.
struct KtDbPixelFormat
{
    int redPosition = 0;
    int redBits = 0;
    int greenPosition = 0;
    int greenBits = 0;
    int bluePosition = 0;
    int blueBits = 0;
    int alphaPosition = 0;
    int alphaBits = 0;
    int bitsPerPixel = 0;
};

/**
 * @brief A rendered page: pixels in memory with their format.
 *
 * Rows are 4-byte aligned (bytesPerLine() may exceed width() times the pixel
 * size). Created by a page item on the host heap; the caller calls release().
 */
class KTHOST_EXPORT KtDbUnderlayImage : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(KtDbUnderlayImage)

public:
    ~KtDbUnderlayImage() override;

    virtual KtDbPixelFormat pixelFormat() const = 0;
    virtual int width() const = 0;
    virtual int height() const = 0;
    /// Bytes from one row to the next, a multiple of 4.
    virtual int bytesPerLine() const = 0;
    /// The first byte of the first row; the image holds height() rows.
    virtual const unsigned char* bits() const = 0;
    /// Gives the image back; it must not be used afterwards.
    void release();
};

/**
 * @brief One page of an underlay file.
 *
 * Owned by its file. The image operations may run on a worker thread while
 * nothing else uses the same file.
 */
class KTHOST_EXPORT KtDbUnderlayItem : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(KtDbUnderlayItem)

public:
    ~KtDbUnderlayItem() override;

    /// The page's name: its label, else its number counted from 1.
    virtual KtString name() const = 0;
    /// The page rendered to fit the file's preview size (aspect ratio kept); null when it cannot be rendered.
    virtual KtDbUnderlayImage* image() const = 0;
    /// The page rendered to fit @p maxSize x @p maxSize into @p result (null on failure).
    virtual Kt::ErrorStatus getImage(KtDbUnderlayImage*& result, int maxSize) const = 0;
};

/// @brief An opened underlay document: its pages as items.
class KTHOST_EXPORT KtDbUnderlayFile : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(KtDbUnderlayFile)

public:
    ~KtDbUnderlayFile() override;

    /// Number of pages.
    virtual int getItemCount() const = 0;
    /// The item of page @p index (owned by the file); eInvalidInput for an index out of range.
    virtual Kt::ErrorStatus getItem(int index, KtDbUnderlayItem*& item) = 0;
    /// The box the pages' image() fits them in; 256 x 256 until set.
    virtual void setPreviewSize(const QSize& size) = 0;
    virtual QSize previewSize() const = 0;
};

class KtDbUnderlayHostPE;

/**
 * @brief The definition of a PDF underlay: which file, with which password.
 *
 * Its underlay file is had through its protocol extension KtDbUnderlayHostPE
 * (queryX(KtDbUnderlayHostPE::desc())) and belongs to the definition.
 */
class KTHOST_EXPORT KtDbPdfDefinition : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(KtDbPdfDefinition)

public:
    KtDbPdfDefinition();
    ~KtDbPdfDefinition() override;

    KtDbPdfDefinition(const KtDbPdfDefinition&) = delete;
    KtDbPdfDefinition& operator=(const KtDbPdfDefinition&) = delete;

    Kt::ErrorStatus setSourceFileName(const wchar_t* fileName);
    KtString sourceFileName() const;
    /// Remembers @p password (null: none) for opening the file; always eOk.
    Kt::ErrorStatus load(const wchar_t* password);
    KtString password() const;
    /// The file opened through the protocol extension, or null.
    KtDbUnderlayFile* underlayFile() const;

private:
    friend class KtDbUnderlayHostPE;
    KtString m_fileName;
    KtString m_password;
    KtDbUnderlayFile* m_file = nullptr;
};

/**
 * @brief Protocol extension of KtDbPdfDefinition: opens its file.
 *
 * KtHost attaches one to KtDbPdfDefinition's class when it is loaded.
 */
class KTHOST_EXPORT KtDbUnderlayHostPE : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(KtDbUnderlayHostPE)

public:
    ~KtDbUnderlayHostPE() override;

    /**
     * Opens the file of @p definition (its source file name, with its
     * password) and hands it over to the definition; @p file points at it.
     * Non-zero for a missing file (eFileNotFound), one that is no readable PDF
     * (eInvalidFileFormat), a locked one without the right password
     * (eInvalidPassword) or a null definition.
     */
    virtual Kt::ErrorStatus getFile(KtDbPdfDefinition* definition, KtDbUnderlayFile*& file);
};

/// Number under which the multi-page raster document service is registered.
constexpr int KtDbRasterDocumentServiceId = 423;

/**
 * @brief A service that opens underlay documents by path.
 *
 * KtHost registers a raster one under KtDbRasterDocumentServiceId: one page
 * per frame of any image QImageReader reads (multi-page TIFF, animated GIF, ...).
 * The documents belong to the service and live as long as it does.
 */
class KTHOST_EXPORT KtDbUnderlayDocumentService : public CJxRxObject
{
    KT_DECLARE_RX_MEMBERS(KtDbUnderlayDocumentService)

public:
    ~KtDbUnderlayDocumentService() override;

    /// The document of @p path, opened on first use; a file that cannot be read has no pages.
    virtual KtDbUnderlayFile* openDocument(const KtString& path) = 0;
};
