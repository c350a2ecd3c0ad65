#include "ktqtblocksignalutil.h"

#include <QObject>

KtQtBlockSignalUtil::KtQtBlockSignalUtil(QObject* object)
    : m_object(object)
{
    if (object)
        m_wasBlocked = object->blockSignals(true);
}

KtQtBlockSignalUtil::~KtQtBlockSignalUtil()
{
    if (m_object)
        m_object->blockSignals(m_wasBlocked);
}
