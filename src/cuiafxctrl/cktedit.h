#pragma once

#include "ktcmdqtutils_export.h"

#include <KtString>
#include <QLineEdit>

/**
 * @brief A QLineEdit with the foundation-class edit-control text API.
 *
 * Unlike the combo box, setting the text is not hidden from the dialog:
 * SetWindowText() emits textChanged() as a user edit would.
 *
 * @see @ref controls
 */
class KTCMDQTUTILS_EXPORT CKtEdit : public QLineEdit
{
    Q_OBJECT

public:
    /// A plain QLineEdit child of @p pParent.
    explicit CKtEdit(QWidget* pParent = nullptr);
    ~CKtEdit() override;

    /// The text of the edit.
    virtual void GetWindowText(KtString& rString);
    /// Replaces the text; signals are not blocked, so textChanged() is emitted.
    virtual void SetWindowText(const wchar_t* lpszString);
};
