#pragma once

#include <QWidget>

class CKtTreeCtrl;
class QLabel;

/// A layer-manager-like tree filled through the foundation-class tree API.
class TreeControlPage : public QWidget
{
    Q_OBJECT

public:
    explicit TreeControlPage(QWidget* parent = nullptr);

private:
    void fill();
    void showState();

    CKtTreeCtrl* m_tree;
    QLabel* m_status;
};
