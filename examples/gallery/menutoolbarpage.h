#pragma once

#include <QWidget>

class MenuToolBarPage : public QWidget
{
    Q_OBJECT

public:
    explicit MenuToolBarPage(QWidget* parent = nullptr);
};
