#pragma once

#include "kthost_export.h"

#include <QPointer>

class QObject;

/**
 * @brief Scoped signal blocker.
 *
 * Blocks the signals of an object for its own lifetime and then restores the
 * blocked state the object had before, so blockers nest. An object destroyed
 * while blocked is left alone.
 */
class KTHOST_EXPORT KtQtBlockSignalUtil
{
public:
    explicit KtQtBlockSignalUtil(QObject* object);
    ~KtQtBlockSignalUtil();

    KtQtBlockSignalUtil(const KtQtBlockSignalUtil&) = delete;
    KtQtBlockSignalUtil& operator=(const KtQtBlockSignalUtil&) = delete;

private:
    QPointer<QObject> m_object;
    bool m_wasBlocked = false;
};
