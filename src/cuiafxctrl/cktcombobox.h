#pragma once

#include "cktafxtypes.h"
#include "ktcmdqtutils_export.h"

#include <KtString>
#include <QComboBox>

class QLineEdit;

/**
 * @brief A QComboBox with the foundation-class combo-box API.
 *
 * Item indices are Qt's rows; CB_ERR (-1) reports a failure. Item data lives
 * under KtItemRole::ItemData as qulonglong. Programmatic changes run with the
 * combo's signals blocked (and unblocked afterwards, whatever the state was
 * before); Clear() is the one exception.
 *
 * Some results differ from the classic control on purpose and are kept:
 * GetCount() reports -1 for an empty combo, the searches start at the start
 * index itself and never wrap around, SelectString() ignores its start index
 * and matches numbers loosely, and SetEditSel() takes a length, not an end.
 *
 * @see @ref controls
 */
class KTCMDQTUTILS_EXPORT CKtComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// A plain QComboBox child of @p pParent; nothing else is set.
    explicit CKtComboBox(QWidget* pParent = nullptr);
    ~CKtComboBox() override;

    /// The text of the current item, or the edit text of an editable combo.
    virtual void GetWindowText(KtString& rString);
    /**
     * Sets the edit text of an editable combo and selects the item whose text
     * matches @p lpszString exactly (case-sensitive), if any. The edit field
     * then shows the start of the text.
     */
    virtual void SetWindowText(const wchar_t* lpszString);

    /// @name Items
    /// @{

    /// Number of items; -1, not 0, when the combo is empty.
    int GetCount() const;
    /// Appends an item without changing the current item; returns its index.
    int AddString(const wchar_t* lpszString);
    /**
     * Inserts an item at @p nIndex (-1 appends). Returns @p nIndex as passed,
     * even when Qt clamps it, or the new index for -1. The current item may move.
     */
    int InsertString(int nIndex, const wchar_t* lpszString);
    /// Removes an item (nothing for an index out of range); returns the remaining count.
    int DeleteString(unsigned int nIndex);
    /// Removes all items, emitting the combo's signals as a user action would.
    void Clear();
    /// Removes all items without emitting signals.
    void ResetContent();
    /// The text of item @p nIndex; empty for an index out of range.
    void GetLBText(int nIndex, KtString& rString);
    /// Stores @p dwItemData with the item; returns @p nIndex as passed.
    int SetItemData(int nIndex, unsigned long long dwItemData);
    /// The item's data, or all bits set (CB_ERR) when none is stored.
    unsigned long long GetItemData(int nIndex) const;
    /// @}

    /// @name Searching
    /// @{
    /**
     * The first item at or after @p nStartAfter (inclusive, no wrap-around)
     * whose text starts with @p lpszString, case-insensitively; -1 searches all.
     */
    int FindString(int nStartAfter, const wchar_t* lpszString) const;
    /// Like FindString(), but the whole text must match (case-insensitively).
    int FindStringExact(int nIndexStart, const wchar_t* lpszString) const;
    /**
     * Selects the first item, from index 0 whatever @p nStartAfter says, whose
     * text equals @p lpszString case-insensitively or, while every item text
     * so far read as a number, whose value differs by less than 1 from the
     * value of @p lpszString. Returns its index, or -1 leaving the selection.
     */
    int SelectString(int nStartAfter, const wchar_t* lpszString);
    /// @}

    /// @name Selection
    /// @{

    /// Index of the current item; -1 when there is none.
    int GetCurSel() const;
    /// Makes @p nSelect current (none when out of range); returns @p nSelect as passed.
    int SetCurSel(int nSelect);
    /// @}

    /// @name Edit field
    /// @{
    /**
     * Only the edit field can be sized: with @p nIndex -1 the line edit of an
     * editable combo gets the height @p cyItemHeight. Returns 0, or -1 for a
     * combo without a line edit.
     */
    int SetItemHeight(int nIndex, unsigned int cyItemHeight);
    /// The selection of the edit field, or the cursor position twice; outputs untouched without one.
    void GetEditSel(int& nStart, int& nEnd);
    /**
     * Selects @p nEndChar characters from @p nStartChar (a length, not an end);
     * a negative start removes the selection, an end of -1 selects all. Returns 1,
     * or 0 for a combo without a line edit.
     */
    int SetEditSel(int nStartChar, int nEndChar);
    /// The line edit of an editable combo, null otherwise.
    QLineEdit* GetEditBox();
    /// @}
};
