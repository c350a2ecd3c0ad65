#include "ktuimessagebox.h"

#include <QApplication>
#include <QMessageBox>

#include <mutex>

namespace {

std::mutex g_handlerMutex;
KtUiMessageBoxHandler& handler()
{
    static KtUiMessageBoxHandler h;
    return h;
}

QMessageBox::StandardButtons buttonsOf(int flags)
{
    switch (flags & 0xF) {
    case 1:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case 4:
        return QMessageBox::Yes | QMessageBox::No;
    default:
        return QMessageBox::Ok;
    }
}

} // namespace

int KtUiMessageBox(const QString& first, const QString& second, int flags, QWidget* parent)
{
    KtUiMessageBoxHandler answer;
    {
        std::lock_guard<std::mutex> lock(g_handlerMutex);
        answer = handler();
    }
    if (answer)
        return answer(first, second, flags, parent);

    QMessageBox box(parent);
    box.setWindowTitle(QApplication::applicationName());
    box.setIcon(QMessageBox::Warning);
    box.setText(first);
    box.setInformativeText(second);
    box.setStandardButtons(buttonsOf(flags));
    return box.exec();
}

KtUiMessageBoxHandler ktuiSetMessageBoxHandler(KtUiMessageBoxHandler replacement)
{
    std::lock_guard<std::mutex> lock(g_handlerMutex);
    KtUiMessageBoxHandler previous = std::move(handler());
    handler() = std::move(replacement);
    return previous;
}
