#pragma once

#include <QAction>
#include <QObject>
#include <QPointer>

/**
 * Ties an action made without a parent to @p owner and returns it.
 *
 * A widget does not delete actions it shows but does not own, and the menu
 * and the toolbar create theirs without a parent (what the classic API's
 * callers see through parent() must stay null). Such an action goes when its
 * owner goes, unless something deleted it before.
 */
inline QAction* ktDeleteWithOwner(QObject* owner, QAction* orphan)
{
    QPointer<QAction> guard(orphan);
    QObject::connect(owner, &QObject::destroyed, [guard] { delete guard.data(); });
    return orphan;
}
