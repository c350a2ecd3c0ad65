#include "ktuidialogs.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QVBoxLayout>

#include <map>
#include <mutex>

namespace {

std::mutex g_mutex;
std::map<QString, KtUiDialogHandler>& dialogs()
{
    static std::map<QString, KtUiDialogHandler> map;
    return map;
}

QPointer<QWidget>& viewWindow()
{
    static QPointer<QWidget> view;
    return view;
}

// The user-arrow dialog: the drawing's blocks by name to choose the arrowhead from.
// In: "blocks" (objects with "name" and "blockId"), "currArrow" (the arrowhead now).
// Out, when accepted: "selectedBlockName".
int userArrowDialog(int, KtUiPropertyObject& properties, QWidget* parent)
{
    QDialog dialog(parent);
    dialog.setWindowTitle(QObject::tr("Select Custom Arrow Block"));
    auto* list = new QListWidget(&dialog);
    const QString current = properties.get(QStringLiteral("currArrow")).toString();
    for (const QVariant& block : properties.get(QStringLiteral("blocks")).toList()) {
        const QString name = block.toMap().value(QStringLiteral("name")).toString();
        auto* item = new QListWidgetItem(name, list);
        if (name.compare(current, Qt::CaseInsensitive) == 0)
            list->setCurrentItem(item);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    QObject::connect(list, &QListWidget::itemDoubleClicked, &dialog, &QDialog::accept);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(new QLabel(QObject::tr("Select from drawing blocks:"), &dialog));
    layout->addWidget(list);
    layout->addWidget(buttons);
    if (dialog.exec() != QDialog::Accepted || !list->currentItem())
        return 0;
    properties.set(QStringLiteral("selectedBlockName"), list->currentItem()->text());
    return 1;
}

// KtHost's own dialogs, registered when it is loaded.
const bool g_registered = [] {
    dialogs().emplace(QStringLiteral(KT_UI_USER_ARROW_DIALOG), userArrowDialog);
    return true;
}();

} // namespace

int ktuiShowModelDialogEx(const QString& path, int kind, KtUiPropertyObject& properties, QWidget* parent)
{
    KtUiDialogHandler handler;
    {
        std::lock_guard<std::mutex> lock(g_mutex);
        const auto it = dialogs().find(path);
        if (it == dialogs().end())
            return -1;
        handler = it->second;
    }
    return handler(kind, properties, parent);
}

KtUiDialogHandler ktuiRegisterDialog(const QString& path, KtUiDialogHandler handler)
{
    std::lock_guard<std::mutex> lock(g_mutex);
    KtUiDialogHandler previous;
    const auto it = dialogs().find(path);
    if (it != dialogs().end()) {
        previous = std::move(it->second);
        dialogs().erase(it);
    }
    if (handler)
        dialogs().emplace(path, std::move(handler));
    return previous;
}

void ktuiSetFocus(QWidget* widget)
{
    if (widget)
        widget->setFocus(Qt::OtherFocusReason);
}

QWidget* ktuiViewWindow()
{
    return viewWindow().data();
}

void ktuiSetViewWindow(QWidget* view)
{
    viewWindow() = view;
}
