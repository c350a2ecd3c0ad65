#pragma once

#include <QWidget>

class CKtListCtrl;
class QLabel;

/// A layer list like a layer manager's, filled and edited through the foundation-class list API.
class ListControlPage : public QWidget
{
    Q_OBJECT

public:
    explicit ListControlPage(QWidget* parent = nullptr);

private:
    void fill();
    void addLayer(
        const wchar_t* name, int colour, const wchar_t* linetype, const wchar_t* lineweight, bool on);
    void newLayer();
    void deleteSelected();
    void renameSelected();
    void showState();

    CKtListCtrl* m_list;
    QLabel* m_status;
    int m_nextId = 1;
};
