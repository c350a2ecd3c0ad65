#pragma once

#include <QWidget>

class CKtComboBox;
class CKtEdit;
class CKtRichEditCtrl;
class QLabel;

/**
 * A text-style dialog filled through the foundation-class combo, edit and
 * rich-edit API: pick a style, type a height or the start of a style name, and
 * the preview follows. Programmatic selections are silent, so the page updates
 * the preview itself after each one, as host dialogs do.
 */
class EditControlsPage : public QWidget
{
    Q_OBJECT

public:
    explicit EditControlsPage(QWidget* parent = nullptr);

private:
    void fillStyles();
    void findStyle();
    void matchHeight();
    void showPreview();

    CKtComboBox* m_styles;
    CKtComboBox* m_heights;
    CKtEdit* m_find;
    CKtRichEditCtrl* m_preview;
    QLabel* m_status;
};
