#include "listcontrolpage.h"

ListControlPage::ListControlPage(QWidget* parent)
    : QWidget(parent)
{
}
