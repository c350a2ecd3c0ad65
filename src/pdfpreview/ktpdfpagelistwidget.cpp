#include "ktpdfpagelistwidget.h"

#include "ktloadpdficonthread.h"
#include "ktmutexautolock.h"
#include "ktresourcetext.h"
#include "ktstringconversion.h"

#include <CJxServiceDictionary>
#include <CJxSystem>
#include <KtDbPdfDefinition>
#include <KtUiMessageBox>
#include <QHash>
#include <QIcon>
#include <QMouseEvent>
#include <ktutimagepath.h>

class KtPdfPageListWidget::Private
{
public:
    QHash<int, QPixmap> pagePixmaps;
    KtLoadPdfIconThread* loader = nullptr;
    KtDbPdfDefinition* definition = nullptr;
    int pageCount = 1;
    QSize largeImageSize{180, 256};
    QSize smallImageSize{82, 102};
    bool smallIcons = true;

    QSize iconSize() const { return smallIcons ? smallImageSize : largeImageSize; }
};

namespace {

// Opens @p path as the loader's type asks; the status is the host's. A PDF
// definition made here comes back through @p definition.
Kt::ErrorStatus openDocument(int type, const KtString& path, std::unique_ptr<KtDbPdfDefinition>& definition,
    KtDbUnderlayFile*& document)
{
    document = nullptr;
    if (type != 0) {
        CJxRxObject* service
            = CJxSystem::instance()->getServiceDictionary()->getService(KtDbRasterDocumentServiceId);
        if (!service)
            return Kt::eNullObjectPointer;
        document = ktRxCheckedCast<KtDbUnderlayDocumentService>(service)->openDocument(path);
        return document ? Kt::eOk : Kt::eNullObjectPointer;
    }
    definition.reset(new KtDbPdfDefinition);
    definition->setSourceFileName(path.c_str());
    definition->load(nullptr);
    auto* extension = KtDbUnderlayHostPE::cast(definition->queryX(KtDbUnderlayHostPE::desc()));
    if (!extension)
        return Kt::eNullObjectPointer;
    const Kt::ErrorStatus status = extension->getFile(definition.get(), document);
    return status == Kt::eOk && !document ? Kt::eNullObjectPointer : status;
}

void showCannotOpen()
{
    const QString first = ktutResourceText(L"IDS_ATTCH_PROMPT9", L"无法打开此文件。");
    const QString second = ktutResourceText(L"IDS_IMAGEATTACH_53",
                               L"此问题可能由以下原因引起:\n- 文件中的数据已损坏\n- "
                               L"文件格式为不再支持的早期格式\n- 文件格式不受支持")
        + QStringLiteral("\n")
        + ktutResourceText(L"IDS_XATTACH_PROMPT61",
            L"请尝试获取正确的文件副本、使用其他设置重新创建文件或将文件转换为支持的文件格式。");
    KtUiMessageBox(first, second, 0, nullptr);
}

} // namespace

KtPdfPageListWidget::KtPdfPageListWidget(QWidget* parent)
    : QListWidget(parent)
    , d(std::make_unique<Private>())
{
    setViewMode(QListView::IconMode);
    setSpacing(15);
    setMovement(QListView::Static);
    setResizeMode(QListView::Adjust);
    d->loader = new KtLoadPdfIconThread(this);
    connect(d->loader, SIGNAL(sendPageQPixmap(QPixmap, int)), this, SLOT(setPageIcon(QPixmap, int)));
    connect(d->loader, &KtLoadPdfIconThread::finishedPreview, this, [this] { Q_EMIT hasFinishedPreview(); });
}

KtPdfPageListWidget::~KtPdfPageListWidget()
{
    d->loader->stop();
    d->loader->quit();
    d->loader->wait();
    KtMutexAutoLock(d->loader->getMutex()).unlock(); // ordered after the loop's end
    // The loader itself goes with the widget's children.
    d->loader = nullptr;
    delete d->definition;
}

void KtPdfPageListWidget::setType(int type)
{
    d->loader->setType(type);
}

void KtPdfPageListWidget::setLargeImageSize(int width, int height)
{
    d->largeImageSize = QSize(width, height);
}

void KtPdfPageListWidget::setSmallImageSize(int width, int height)
{
    d->smallImageSize = QSize(width, height);
}

void KtPdfPageListWidget::switchPicture(bool small)
{
    // Never while the loader hands over a page image.
    KtMutexAutoLock lock(d->loader->getMutex());
    d->smallIcons = small;
    setIconSize(d->iconSize());
    viewport()->update();
}

int KtPdfPageListWidget::setInfo(const QString& fileName)
{
    stopPreview();
    d->pagePixmaps = QHash<int, QPixmap>();
    d->pageCount = 0;

    const KtString path = ktutQStringToKtString(fileName);
    try {
        std::unique_ptr<KtDbPdfDefinition> definition;
        KtDbUnderlayFile* document = nullptr;
        if (openDocument(d->loader->getType(), path, definition, document) == Kt::eOk) {
            // Only now is the old list given up.
            clear();
            setIconSize(d->iconSize());
            delete d->definition;
            d->definition = definition.release();
            d->loader->clear();
            document->setPreviewSize(d->iconSize());

            const int count = document->getItemCount();
            if (count >= 1) {
                d->pageCount = count;
                d->loader->setItemCount(count);
                const QIcon placeholder(
                    QPixmap(ktutGetImageFullPath(QStringLiteral("common/empty.bmp"), true))
                        .scaled(d->iconSize(), Qt::IgnoreAspectRatio, Qt::FastTransformation));
                for (int index = 0; index < count; ++index) {
                    KtDbUnderlayItem* page = nullptr;
                    if (document->getItem(index, page) != Kt::eOk || !page)
                        continue; // no row; later rows keep their page index
                    auto* item = new QListWidgetItem(placeholder, ktutKtStringToQString(page->name()));
                    item->setData(Qt::UserRole, index);
                    addItem(item);
                    d->loader->setItem(index, page);
                }
            }
            setCurrentRow(0);
            if (d->pageCount > 0)
                d->loader->start();
            return d->pageCount;
        }
    } catch (...) {
        // A host error while opening counts as a file that cannot be opened.
    }
    showCannotOpen();
    return d->pageCount;
}

void KtPdfPageListWidget::setPageIcon(const QPixmap& image, int index)
{
    if (d->pagePixmaps.contains(index))
        return;
    QListWidgetItem* row = item(index);
    if (!row)
        return;
    row->setData(Qt::DecorationRole, QIcon(image));
    row->setData(Qt::DisplayRole, QStringLiteral("%1").arg(index + 1));
    d->pagePixmaps.insert(index, image);
}

int KtPdfPageListWidget::getSelectItemIndex(QListWidgetItem* item)
{
    return item ? item->data(Qt::UserRole).toInt() : -1;
}

QPixmap KtPdfPageListWidget::getSelectItemIcon(int index)
{
    auto it = d->pagePixmaps.find(index);
    if (it == d->pagePixmaps.end())
        it = d->pagePixmaps.insert(index, QPixmap());
    return it.value();
}

void KtPdfPageListWidget::stopPreview()
{
    d->loader->stop();
    d->loader->wait();
    // The loop ends by passing through this mutex: taking it orders what follows after the loop.
    KtMutexAutoLock(d->loader->getMutex()).unlock();
}

bool KtPdfPageListWidget::event(QEvent* event)
{
    // The loader posts its page images and its end while it holds its mutex;
    // passing through the mutex before an event is even looked at orders that
    // hand-over, which Qt's own locks do but cannot show to a race checker.
    // Uncontended, it costs next to nothing.
    if (d->loader)
        KtMutexAutoLock(d->loader->getMutex()).unlock();
    return QListWidget::event(event);
}

void KtPdfPageListWidget::mousePressEvent(QMouseEvent* event)
{
    if (indexAt(event->pos()).isValid())
        QListWidget::mousePressEvent(event);
}

void KtPdfPageListWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (indexAt(event->pos()).isValid())
        QListWidget::mouseDoubleClickEvent(event);
}

void KtPdfPageListWidget::mouseMoveEvent(QMouseEvent* event)
{
    // No drag selection and no rubber band.
    event->ignore();
}

void KtPdfPageListWidget::mouseReleaseEvent(QMouseEvent* event)
{
    QListWidget::mouseReleaseEvent(event);
}
