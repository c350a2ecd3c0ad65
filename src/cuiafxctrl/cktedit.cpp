#include "cktedit.h"

#include "ktstringconversion.h"

CKtEdit::CKtEdit(QWidget* pParent)
    : QLineEdit(pParent)
{ }

CKtEdit::~CKtEdit() = default;

void CKtEdit::GetWindowText(KtString& rString)
{
    rString.assign(ktutQStringToKtString(text()));
}

void CKtEdit::SetWindowText(const wchar_t* lpszString)
{
    // Deliberately not blocked: dialogs validate their edits in textChanged handlers.
    setText(ktutWideToQString(lpszString));
}
