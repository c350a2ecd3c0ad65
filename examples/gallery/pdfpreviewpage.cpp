#include "pdfpreviewpage.h"

#include <KtDbPdfDefinition>
#include <KtPdfPageListWidget>
#include <QCheckBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPdfWriter>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>
#include <ktstringconversion.h>

namespace {

// A small drawing set, written on first use so that the page works with no file at hand.
QString samplePdf()
{
    const QString dir = QStandardPaths::writableLocation(QStandardPaths::TempLocation);
    const QString path = QDir(dir).filePath(QStringLiteral("ktgallery-sample.pdf"));
    if (QFileInfo::exists(path))
        return path;
    QPdfWriter writer(path);
    writer.setResolution(72);
    writer.setTitle(QStringLiteral("Sample drawing set"));
    QPainter painter(&writer);
    const QStringList titles = {"Site plan", "Ground floor", "First floor", "Roof", "Section A-A",
        "Section B-B", "North elevation", "South elevation", "Details", "Schedules"};
    for (int i = 0; i < titles.size(); ++i) {
        if (i) {
            writer.setPageOrientation(i % 4 == 3 ? QPageLayout::Landscape : QPageLayout::Portrait);
            writer.newPage();
        }
        const QRect page(0, 0, writer.width(), writer.height());
        painter.setPen(QPen(Qt::black, 3));
        painter.drawRect(page.adjusted(20, 20, -20, -20));
        painter.setPen(QPen(QColor::fromHsv(i * 36, 180, 160), 2));
        for (int r = 0; r < 8; ++r)
            painter.drawRect(
                QRect(60 + r * 25, 120 + r * 30, page.width() - 160 - r * 50, page.height() / 2 - r * 40));
        painter.drawEllipse(page.center(), 60 + i * 5, 60 + i * 5);
        painter.setPen(Qt::black);
        painter.setFont(QFont(QStringLiteral("Sans"), 28, QFont::Bold));
        painter.drawText(QRect(40, 40, page.width() - 80, 60), Qt::AlignLeft, titles.at(i));
        painter.setFont(QFont(QStringLiteral("Sans"), 12));
        painter.drawText(QRect(40, page.height() - 80, page.width() - 80, 40), Qt::AlignRight,
            QStringLiteral("Sheet %1 of %2").arg(i + 1).arg(titles.size()));
    }
    return path;
}

} // namespace

PdfPreviewPage::PdfPreviewPage(QWidget* parent)
    : QWidget(parent)
    , m_pages(new KtPdfPageListWidget(this))
    , m_large(new QCheckBox(tr("Large pages"), this))
    , m_preview(new QLabel(this))
    , m_status(new QLabel(this))
{
    auto* choose = new QPushButton(tr("Open PDF..."), this);
    auto* controls = new QHBoxLayout;
    controls->addWidget(choose);
    controls->addWidget(m_large);
    controls->addStretch();

    m_preview->setMinimumSize(300, 300);
    m_preview->setAlignment(Qt::AlignCenter);
    m_preview->setFrameShape(QFrame::StyledPanel);
    auto* views = new QHBoxLayout;
    views->addWidget(m_pages, 3);
    views->addWidget(m_preview, 2);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(controls);
    layout->addLayout(views, 1);
    layout->addWidget(m_status);

    connect(choose, &QPushButton::clicked, this, [this] {
        const QString file = QFileDialog::getOpenFileName(
            this, tr("Open PDF"), QFileInfo(m_file).path(), tr("PDF files (*.pdf);;All files (*)"));
        if (!file.isEmpty())
            open(file);
    });
    connect(m_large, &QCheckBox::toggled, m_pages, [this](bool large) { m_pages->switchPicture(!large); });
    connect(m_pages, &QListWidget::currentItemChanged, this, &PdfPreviewPage::showPage);
    connect(m_pages, &KtPdfPageListWidget::hasFinishedPreview, this, [this] {
        setProperty("galleryBusy", false);
        m_status->setText(
            tr("%1: %2 pages, all rendered.").arg(QFileInfo(m_file).fileName()).arg(m_pages->count()));
    });

    open(samplePdf());
}

PdfPreviewPage::~PdfPreviewPage() = default;

void PdfPreviewPage::open(const QString& file)
{
    setProperty("galleryBusy", true);
    const int pages = m_pages->setInfo(file);
    if (pages <= 0) {
        setProperty("galleryBusy", false);
        m_status->setText(tr("%1 has no pages to show.").arg(QFileInfo(file).fileName()));
        return;
    }
    m_file = file;
    m_definition = std::make_unique<KtDbPdfDefinition>();
    const std::wstring path = file.toStdWString();
    m_definition->setSourceFileName(path.c_str());
    m_definition->load(nullptr);
    m_status->setText(tr("%1: %2 pages, rendering...").arg(QFileInfo(file).fileName()).arg(pages));
    showPage(m_pages->currentItem());
}

void PdfPreviewPage::showPage(QListWidgetItem* item)
{
    m_preview->clear();
    if (!item || !m_definition)
        return;
    // The chosen page at the size of the preview, through the same host document interfaces.
    KtDbUnderlayFile* file = m_definition->underlayFile();
    if (!file) {
        auto* extension = KtDbUnderlayHostPE::cast(m_definition->queryX(KtDbUnderlayHostPE::desc()));
        if (!extension || extension->getFile(m_definition.get(), file) != Kt::eOk)
            return;
    }
    KtDbUnderlayItem* page = nullptr;
    KtDbUnderlayImage* image = nullptr;
    const int size = std::min(m_preview->width(), m_preview->height()) - 10;
    if (file->getItem(m_pages->getSelectItemIndex(item), page) != Kt::eOk
        || page->getImage(image, std::max(size, 100)) != Kt::eOk)
        return;
    const QImage view(
        image->bits(), image->width(), image->height(), image->bytesPerLine(), QImage::Format_ARGB32);
    m_preview->setPixmap(QPixmap::fromImage(view));
    image->release();
    m_preview->setToolTip(tr("Page %1").arg(ktutKtStringToQString(page->name())));
}
