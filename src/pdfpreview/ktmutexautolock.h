#pragma once

#include "ktcmdqtutils_export.h"

#include <pthread.h>

/**
 * @brief Scoped lock of a POSIX mutex: locks on construction, unlocks on
 * destruction if still locked.
 *
 * Used with the recursive mutex of KtLoadPdfIconThread (getMutex()).
 *
 * @see @ref pdfpreview
 */
class KTCMDQTUTILS_EXPORT KtMutexAutoLock
{
public:
    /// Locks @p mutex; a null mutex is not locked.
    explicit KtMutexAutoLock(pthread_mutex_t* mutex);
    ~KtMutexAutoLock();

    /// Unlocks early; the destructor then does nothing.
    void unlock();

    KtMutexAutoLock(const KtMutexAutoLock&) = delete;
    KtMutexAutoLock& operator=(const KtMutexAutoLock&) = delete;

private:
    pthread_mutex_t* m_mutex;
    bool m_locked;
};
