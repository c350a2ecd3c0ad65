#pragma once

#include <QWidget>

class ListControlPage : public QWidget
{
    Q_OBJECT

public:
    explicit ListControlPage(QWidget* parent = nullptr);
};
