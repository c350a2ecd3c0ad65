#include "cktcombobox.h"

#include "ktitemroles.h"
#include "ktsignalblock_p.h"
#include "ktstringconversion.h"

#include <KtQtBlockSignalUtil>
#include <QLineEdit>

#include <algorithm>
#include <cmath>

namespace {

constexpr unsigned long long kNoItemData = static_cast<unsigned long long>(CB_ERR);

// The first index from @p start up whose text (as itemText() reads it)
// satisfies @p match, or CB_ERR. The model, root, column and role are looked
// up once instead of once per item, which is most of itemText()'s cost.
template <class Match>
int findFrom(const QComboBox& combo, int start, Match match)
{
    const QAbstractItemModel* model = combo.model();
    const QModelIndex root = combo.rootModelIndex();
    const int column = combo.modelColumn();
    const int role = combo.isEditable() ? Qt::EditRole : Qt::DisplayRole;
    const int n = model->rowCount(root);
    // A negative index has no text, so it never matches: start at 0 instead
    // of walking up to it one index at a time.
    for (int i = std::max(start, 0); i < n; ++i) {
        if (match(model->data(model->index(i, column, root), role).toString()))
            return i;
    }
    return CB_ERR;
}

} // namespace

CKtComboBox::CKtComboBox(QWidget* pParent)
    : QComboBox(pParent)
{ }

CKtComboBox::~CKtComboBox() = default;

// --- Window text -----------------------------------------------------------------

void CKtComboBox::GetWindowText(KtString& rString)
{
    rString.assign(ktutQStringToKtString(currentText()));
}

void CKtComboBox::SetWindowText(const wchar_t* lpszString)
{
    const QString text = ktutWideToQString(lpszString);
    {
        const KtBlockThenUnblock blocker(this);
        setCurrentText(text);
        const int index = findData(text, Qt::DisplayRole, Qt::MatchCaseSensitive);
        if (index >= 0)
            setCurrentIndex(index);
    }
    // Long texts should show their start, not their end, in the edit field.
    if (QLineEdit* edit = lineEdit())
        edit->setCursorPosition(0);
}

// --- Items -----------------------------------------------------------------------

int CKtComboBox::GetCount() const
{
    const int n = count();
    return n > 0 ? n : -1;
}

int CKtComboBox::AddString(const wchar_t* lpszString)
{
    const QString text = ktutWideToQString(lpszString);
    const KtBlockThenUnblock blocker(this);
    const int n = count();
    const int before = currentIndex();

    QLineEdit* edit = n == 0 ? lineEdit() : nullptr;
    if (edit) {
        // Qt makes the first item of an empty combo current, which for an
        // editable one also replaces what the user typed. Both are put back,
        // without the line edit reporting the round trip.
        const QString editText = edit->text();
        KtQtBlockSignalUtil editBlocker(edit);
        insertItem(n, QIcon(), text, QVariant());
        if (currentIndex() != before) {
            setCurrentIndex(before);
            if (edit->text() != editText)
                edit->setText(editText);
        }
    } else {
        insertItem(n, QIcon(), text, QVariant());
        if (currentIndex() != before)
            setCurrentIndex(before);
    }
    return count() - 1;
}

int CKtComboBox::InsertString(int nIndex, const wchar_t* lpszString)
{
    const QString text = ktutWideToQString(lpszString);
    const KtBlockThenUnblock blocker(this);
    if (nIndex == -1) {
        insertItem(count(), QIcon(), text, QVariant());
        return count() - 1;
    }
    insertItem(nIndex, QIcon(), text, QVariant());
    return nIndex;
}

int CKtComboBox::DeleteString(unsigned int nIndex)
{
    const KtBlockThenUnblock blocker(this);
    // Indices beyond INT_MAX become negative here, which removeItem() ignores.
    removeItem(static_cast<int>(nIndex));
    return count();
}

void CKtComboBox::Clear()
{
    clear();
}

void CKtComboBox::ResetContent()
{
    const KtBlockThenUnblock blocker(this);
    clear();
}

void CKtComboBox::GetLBText(int nIndex, KtString& rString)
{
    rString.assign(L"");
    rString.assign(ktutQStringToKtString(itemText(nIndex)));
}

int CKtComboBox::SetItemData(int nIndex, unsigned long long dwItemData)
{
    // Changing the current item's data makes Qt re-announce its text.
    const KtBlockThenUnblock blocker(this);
    setItemData(nIndex, qulonglong(dwItemData), KtItemRole::ItemData);
    return nIndex;
}

unsigned long long CKtComboBox::GetItemData(int nIndex) const
{
    const QVariant value = itemData(nIndex, KtItemRole::ItemData);
    bool ok = false;
    const qulonglong data = value.toULongLong(&ok);
    return ok ? data : kNoItemData;
}

// --- Searching -------------------------------------------------------------------

int CKtComboBox::FindString(int nStartAfter, const wchar_t* lpszString) const
{
    const QString text = ktutWideToQString(lpszString);
    return findFrom(*this, nStartAfter,
        [&text](const QString& item) { return item.startsWith(text, Qt::CaseInsensitive); });
}

int CKtComboBox::FindStringExact(int nIndexStart, const wchar_t* lpszString) const
{
    const QString text = ktutWideToQString(lpszString);
    return findFrom(*this, nIndexStart,
        [&text](const QString& item) { return item.compare(text, Qt::CaseInsensitive) == 0; });
}

int CKtComboBox::SelectString(int nStartAfter, const wchar_t* lpszString)
{
    Q_UNUSED(nStartAfter);
    const QString text = ktutWideToQString(lpszString);
    bool numeric = false;
    const double value = text.toDouble(&numeric);

    // Numbers match when they differ by less than 1. The flag is shared with
    // the item conversions on purpose: once an item text is not a number, the
    // rest of the walk compares text only, as callers of the classic control
    // have come to rely on.
    const int index = findFrom(*this, 0, [&](const QString& item) {
        if (item.compare(text, Qt::CaseInsensitive) == 0)
            return true;
        if (!numeric)
            return false;
        const double itemValue = item.toDouble(&numeric);
        return numeric && std::fabs(std::trunc(itemValue - value)) < 1e-6;
    });
    if (index != CB_ERR) {
        const KtBlockThenUnblock blocker(this);
        setCurrentIndex(index);
    }
    return index;
}

// --- Selection -------------------------------------------------------------------

int CKtComboBox::GetCurSel() const
{
    return currentIndex();
}

int CKtComboBox::SetCurSel(int nSelect)
{
    const KtBlockThenUnblock blocker(this);
    setCurrentIndex(nSelect);
    return nSelect;
}

// --- Edit field ------------------------------------------------------------------

int CKtComboBox::SetItemHeight(int nIndex, unsigned int cyItemHeight)
{
    QLineEdit* edit = lineEdit();
    if (!isEditable() || !edit)
        return CB_ERR;
    if (nIndex == -1) {
        // Clamped to what QWidget accepts, so huge values do not wrap negative.
        const unsigned int height = std::min<unsigned int>(cyItemHeight, QWIDGETSIZE_MAX);
        edit->setFixedHeight(static_cast<int>(height));
    }
    return 0;
}

void CKtComboBox::GetEditSel(int& nStart, int& nEnd)
{
    const QLineEdit* edit = lineEdit();
    if (!isEditable() || !edit)
        return;
    if (edit->hasSelectedText()) {
        nStart = edit->selectionStart();
        nEnd = edit->selectionEnd();
    } else {
        nStart = nEnd = edit->cursorPosition();
    }
}

int CKtComboBox::SetEditSel(int nStartChar, int nEndChar)
{
    QLineEdit* edit = lineEdit();
    if (!isEditable() || !edit)
        return 0;
    // Qt refuses (with a warning) a start outside the text; the classic control
    // clamps, so positions past the end mean the end and other negative starts
    // remove the selection like -1.
    if (nStartChar < 0) {
        edit->setSelection(0, 0);
    } else if (nEndChar == -1) {
        edit->selectAll();
    } else {
        // The second value is Qt's length, not an end position: (2, 5) selects five characters.
        edit->setSelection(std::min(nStartChar, edit->text().size()), nEndChar);
    }
    return 1;
}

QLineEdit* CKtComboBox::GetEditBox()
{
    return lineEdit();
}
