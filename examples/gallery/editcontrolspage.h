#pragma once

#include <QWidget>

class EditControlsPage : public QWidget
{
    Q_OBJECT

public:
    explicit EditControlsPage(QWidget* parent = nullptr);
};
