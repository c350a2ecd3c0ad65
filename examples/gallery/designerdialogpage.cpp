#include "designerdialogpage.h"

#include "dimensionstyledialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

DesignerDialogPage::DesignerDialogPage(QWidget* parent)
    : QWidget(parent)
{
    auto* embedded = new DimensionStyleDialog(this);
    embedded->setWindowFlags(Qt::Widget); // shown in the page, not as a window of its own
    auto* open = new QPushButton(tr("Open as a dialog..."), this);
    connect(open, &QPushButton::clicked, this, &DesignerDialogPage::openDialog);

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(tr("Laid out in Qt Designer (examples/dimensionstyle/dimensionstyledialog.ui) "
                                 "from the library's widgets. Picking an arrowhead makes its block."),
                       this),
        1);
    top->addWidget(open);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(embedded, 1);
}

void DesignerDialogPage::openDialog()
{
    auto* dialog = new DimensionStyleDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
}
