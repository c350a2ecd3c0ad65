#pragma once

#include "ktcmdqtutils_export.h"

#include <QListWidget>
#include <QPixmap>

#include <memory>

class QListWidgetItem;
class QMouseEvent;

/**
 * @brief Thumbnails of the pages of a PDF (or of another underlay document)
 * to pick one from.
 *
 * setInfo() opens the document through the host, lists one placeholder per
 * page at once and starts a KtLoadPdfIconThread that renders the pages; each
 * image replaces its placeholder as it arrives, and hasFinishedPreview() tells
 * when all have. Each item holds its page index under Qt::UserRole. Two icon
 * sizes, 82 x 102 (small, the default) and 180 x 256, are switched with
 * switchPicture(). A click on empty space changes nothing; dragging selects
 * nothing.
 *
 * @see @ref pdfpreview
 */
class KTCMDQTUTILS_EXPORT KtPdfPageListWidget : public QListWidget
{
    Q_OBJECT

public:
    /// An empty icon-mode list (spacing 15, static items) with its own KtLoadPdfIconThread.
    explicit KtPdfPageListWidget(QWidget* parent = nullptr);
    /// Stops the loader and waits for it before the list goes.
    ~KtPdfPageListWidget() override;

    /// 0 (the default): PDF files; any other value: documents of the host's underlay service 423.
    void setType(int type);
    /// The large icon size (180 x 256 by default); used from the next switchPicture() or setInfo().
    void setLargeImageSize(int width, int height);
    /// The small icon size (82 x 102 by default); used from the next switchPicture() or setInfo().
    void setSmallImageSize(int width, int height);
    /// Shows the small (@p small true) or the large icons; safe while images arrive.
    void switchPicture(bool small);
    /**
     * Stops any preview, opens @p fileName, lists its pages and starts
     * rendering them. Returns the page count. A file that cannot be opened
     * shows the host's message box and leaves the list as it was (returning 0).
     */
    int setInfo(const QString& fileName);
    /// The page index of @p item (-1 for a null item).
    int getSelectItemIndex(QListWidgetItem* item);
    /**
     * The rendered image of page @p index. Before it has arrived this is an
     * empty pixmap, which is then kept for that page: its image no longer replaces the placeholder.
     */
    QPixmap getSelectItemIcon(int index);
    /// Stops rendering and waits for the loader to end.
    void stopPreview();

public Q_SLOTS:
    /// Shows @p image as the icon of the row at @p index, with the page number as text; the first image wins.
    void setPageIcon(const QPixmap& image, int index);

Q_SIGNALS:
    /// The loader is done with the document given to setInfo() (finished or stopped).
    void hasFinishedPreview();

protected:
    /// Passes through the loader's mutex first, so that page images handed over are seen in order.
    bool event(QEvent* event) override;
    /// Handled only on an item: a press on empty space keeps the selection and the current row.
    void mousePressEvent(QMouseEvent* event) override;
    /// Handled only on an item.
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    /// Ignored: no drag selection and no rubber band.
    void mouseMoveEvent(QMouseEvent* event) override;
    /// QListWidget's handling.
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    class Private;
    std::unique_ptr<Private> d;
};
