#pragma once

#include <QTemporaryDir>
#include <QWidget>

class CKtMenu;
class CKtToolBar;
class QLabel;
class QPushButton;

/// A drawing toolbar cut from a bitmap strip and a command menu, both on the foundation-class API.
class MenuToolBarPage : public QWidget
{
    Q_OBJECT

public:
    explicit MenuToolBarPage(QWidget* parent = nullptr);

private:
    void buildToolBar();
    void buildMenu();
    void openMenu();
    void commandChosen(unsigned int id);

    QTemporaryDir m_stripDir;
    CKtToolBar* m_toolBar;
    CKtMenu* m_menu;
    QPushButton* m_menuButton;
    QLabel* m_status;
};
