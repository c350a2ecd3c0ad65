// The underlay interfaces, the PDF definition and its protocol extension.
#include "ktdbunderlay.h"

#include "ktdbpdfunderlay_p.h"

#include <QFileInfo>

KT_DEFINE_RX_MEMBERS(KtDbUnderlayImage, CJxRxObject)
KT_DEFINE_RX_MEMBERS(KtDbUnderlayItem, CJxRxObject)
KT_DEFINE_RX_MEMBERS(KtDbUnderlayFile, CJxRxObject)
KT_DEFINE_RX_MEMBERS(KtDbPdfDefinition, CJxRxObject)
KT_DEFINE_RX_MEMBERS(KtDbUnderlayHostPE, CJxRxObject)
KT_DEFINE_RX_MEMBERS(KtDbUnderlayDocumentService, CJxRxObject)

KtDbUnderlayImage::~KtDbUnderlayImage() = default;

void KtDbUnderlayImage::release()
{
    delete this;
}

KtDbUnderlayItem::~KtDbUnderlayItem() = default;
KtDbUnderlayFile::~KtDbUnderlayFile() = default;
KtDbUnderlayDocumentService::~KtDbUnderlayDocumentService() = default;
KtDbUnderlayHostPE::~KtDbUnderlayHostPE() = default;

KtDbPdfDefinition::KtDbPdfDefinition() = default;

KtDbPdfDefinition::~KtDbPdfDefinition()
{
    delete m_file;
}

Kt::ErrorStatus KtDbPdfDefinition::setSourceFileName(const wchar_t* fileName)
{
    if (!fileName)
        return Kt::eInvalidInput;
    m_fileName = KtString(fileName);
    return Kt::eOk;
}

KtString KtDbPdfDefinition::sourceFileName() const
{
    return m_fileName;
}

Kt::ErrorStatus KtDbPdfDefinition::load(const wchar_t* password)
{
    m_password = KtString(password ? password : L"");
    return Kt::eOk;
}

KtString KtDbPdfDefinition::password() const
{
    return m_password;
}

KtDbUnderlayFile* KtDbPdfDefinition::underlayFile() const
{
    return m_file;
}

Kt::ErrorStatus KtDbUnderlayHostPE::getFile(KtDbPdfDefinition* definition, KtDbUnderlayFile*& file)
{
    file = nullptr;
    if (!definition)
        return Kt::eNullObjectPointer;
    KtDbPdfFile* opened = nullptr;
    const Kt::ErrorStatus status
        = KtDbPdfFile::open(definition->sourceFileName(), definition->password(), opened);
    if (status != Kt::eOk)
        return status;
    delete definition->m_file;
    definition->m_file = opened;
    file = opened;
    return Kt::eOk;
}

namespace {

// The protocol extension KtHost attaches to the PDF definition's class while it is loaded.
struct PdfProtocolRegistration
{
    KtDbUnderlayHostPE* extension = new KtDbUnderlayHostPE;
    PdfProtocolRegistration() { KtDbPdfDefinition::desc()->addX(KtDbUnderlayHostPE::desc(), extension); }
    ~PdfProtocolRegistration()
    {
        KtDbPdfDefinition::desc()->addX(KtDbUnderlayHostPE::desc(), nullptr);
        delete extension;
    }
};
const PdfProtocolRegistration g_pdfProtocol;

} // namespace
