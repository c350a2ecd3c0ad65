#include "ktmutexautolock.h"

KtMutexAutoLock::KtMutexAutoLock(pthread_mutex_t* mutex)
    : m_mutex(mutex)
    , m_locked(mutex && pthread_mutex_lock(mutex) == 0)
{ }

KtMutexAutoLock::~KtMutexAutoLock()
{
    unlock();
}

void KtMutexAutoLock::unlock()
{
    if (m_locked) {
        pthread_mutex_unlock(m_mutex);
        m_locked = false;
    }
}
