#include "menutoolbarpage.h"

MenuToolBarPage::MenuToolBarPage(QWidget* parent)
    : QWidget(parent)
{
}
