#pragma once

#include <QObject>

/**
 * Blocks an object's signals for a scope, then unblocks them whatever the
 * state was before.
 *
 * Programmatic changes in the widgets use this: dialog code ported from the
 * classic controls expects a widget to talk again after any call that changed
 * it, even when the dialog had blocked it. The host's KtQtBlockSignalUtil,
 * which restores the earlier state instead, is kept for the few writes that
 * must leave a caller's blocking as it was (the tree's state bookkeeping, the
 * combo's edit field, the user-arrow dialog).
 */
class KtBlockThenUnblock
{
public:
    explicit KtBlockThenUnblock(QObject* object)
        : m_object(object)
    {
        m_object->blockSignals(true);
    }
    ~KtBlockThenUnblock() { m_object->blockSignals(false); }

    KtBlockThenUnblock(const KtBlockThenUnblock&) = delete;
    KtBlockThenUnblock& operator=(const KtBlockThenUnblock&) = delete;

private:
    QObject* m_object;
};
