#include "editcontrolspage.h"

EditControlsPage::EditControlsPage(QWidget* parent)
    : QWidget(parent)
{
}
