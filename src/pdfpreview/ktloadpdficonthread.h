#pragma once

#include "ktcmdqtutils_export.h"

#include <QPixmap>
#include <QThread>

#include <pthread.h>

#include <memory>

/**
 * @brief Renders the page images of an underlay document, one after another,
 * away from the GUI thread.
 *
 * The owner fills the item array with the document's page items (opaque
 * pointers, one per page index) while the thread is stopped, then starts it.
 * run() asks each item for its image and emits it with its page index under
 * the recursive mutex (getMutex()), then emits finishedPreview(), also when it
 * was stopped or had nothing to do. stop() ends the loop after the page in
 * progress.
 *
 * @see @ref pdfpreview
 */
class KTCMDQTUTILS_EXPORT KtLoadPdfIconThread : public QThread
{
    Q_OBJECT

public:
    /// A stopped loader of type 0 with no items and its recursive mutex.
    explicit KtLoadPdfIconThread(QObject* parent = nullptr);
    /// Sets the stop flag and waits for the loop to end.
    ~KtLoadPdfIconThread() override;

    /// 0: items of a PDF definition's file; any other value: items of a document of the host's service.
    void setType(int type);
    /// The type last given to setType(); 0 at first.
    int getType() const;
    /// Makes the item array exactly max(@p count, 0) long, keeping its entries; clears the stop flag.
    void setItemCount(int count);
    /// Stores @p item for page @p index (ignored outside the array); clears the stop flag.
    void setItem(int index, void* item);
    /// Empties the item array.
    void clear();
    /// The recursive mutex held while a page image is emitted.
    pthread_mutex_t* getMutex();
    /// Asks the loop to end after the page in progress.
    void stop();
    /**
     * The image of page item @p item as a pixmap; empty when stopped, for a
     * null item, or when the item gives no image (host errors included).
     */
    QPixmap getImage(void* item);

Q_SIGNALS:
    /// A page's image; @p index is the page index.
    void sendPageQPixmap(const QPixmap& image, int index);
    /// The loop is over, whether it finished, was stopped or had no pages.
    void finishedPreview();

protected:
    /**
     * The loop (start it with start()): for each page from index 0, getImage()
     * and sendPageQPixmap() under the mutex, until the last page or stop();
     * then finishedPreview(), also under the mutex.
     */
    void run() override;

private:
    class Private;
    std::unique_ptr<Private> d;
};
