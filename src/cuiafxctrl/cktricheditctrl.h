#pragma once

#include "ktcmdqtutils_export.h"

#include <KtString>
#include <QTextEdit>

/**
 * @brief A QTextEdit with the foundation-class rich-edit text API.
 *
 * Text set through SetWindowText() gets a heading: its first line is shown
 * bold and 6 points larger than the body. GetWindowText() returns plain text.
 *
 * @see @ref controls
 */
class KTCMDQTUTILS_EXPORT CKtRichEditCtrl : public QTextEdit
{
    Q_OBJECT

public:
    /// A plain QTextEdit child of @p pParent.
    explicit CKtRichEditCtrl(QWidget* pParent = nullptr);
    ~CKtRichEditCtrl() override;

    /// The plain text of the document; formatting is dropped.
    virtual void GetWindowText(KtString& rString);
    /**
     * Replaces the document with plain text, formats its first visual line as
     * a bold heading 6 points larger than the body, and puts the caret at the
     * start of the second paragraph (after the text, when there is only one).
     */
    virtual void SetWindowText(const wchar_t* lpszString);
};
