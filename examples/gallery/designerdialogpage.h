#pragma once

#include <QWidget>

/**
 * The dimension-style dialog laid out in Qt Designer, shown in place, with a
 * button that opens it as the host would: as a dialog of its own.
 */
class DesignerDialogPage : public QWidget
{
    Q_OBJECT

public:
    explicit DesignerDialogPage(QWidget* parent = nullptr);

private:
    void openDialog();
};
