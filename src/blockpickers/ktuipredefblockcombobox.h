#pragma once

#include "arrownameinfo.h"
#include "ktcmdqtutils_export.h"

#include <QComboBox>
#include <ktdbobject.h>

#include <array>

class KtDbBlockTableRecord;

/**
 * @brief Combo box of the six predefined callout and tag blocks.
 *
 * Each row stands for a block of the current drawing, made on demand in the
 * drawing's measurement (metric or imperial) with a "TAGNUMBER" attribute
 * (GeneratePredefHeadBlock()). Icons are the 17 x 17 tiles of
 * "common/predefblock.bmp". The block names are the drawings' own, and so is
 * their pairing with the texts: "_TagHexagon" holds a square, "_TagBox" a hexagon.
 *
 * The slot follows the current index; as the connection is made before the
 * rows are inserted, the first row's block is made when the combo is built.
 *
 * @see @ref blockpickers
 */
class KTCMDQTUTILS_EXPORT KtUiPredefBlockComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// Calls Initialize(), which makes the first row's block in the current drawing.
    explicit KtUiPredefBlockComboBox(QWidget* parent = nullptr);
    ~KtUiPredefBlockComboBox() override;

    /**
     * Connects the index slot (one more connection per call) and appends the
     * six rows; nothing is cleared.
     */
    void Initialize();
    /// The block name of the current row (0 to 19); empty otherwise or for an unused row.
    QString getCurPredefBlockName();
    /// The first row whose block name equals @p blockName ignoring case; -1 when none or empty.
    int findItemByPredefBlockName(const QString& blockName) const;
    /**
     * Compares the upper-cased @p blockName with the rows' stored (mixed-case)
     * block names, so it selects nothing and returns -1; kept for ported callers.
     * Select by name with findItemByPredefBlockName() and setCurrentIndex().
     */
    int SelectString(int, QString blockName);
    /// The current row's block, made when missing; null outside rows 0 to 5.
    KtDbObjectId GetCurSelPredefHead();
    /// Does nothing.
    void OnSelectOther();

    /// The index of the current choice as the slot left it.
    int currentPredefIndex() const;
    /// The block id the slot stored for the current choice.
    KtDbObjectId currentPredefId() const;

    /// The current drawing's block @p name; null when there is none or the table cannot be read.
    static KtDbObjectId GetBlockTableRecordId(const wchar_t* name);
    /// As KtUiArrowComboBox::AddRecordToBlockTable().
    static bool AddRecordToBlockTable(KtDbBlockTableRecord* record, KtDbObjectId& id);
    /// The block of row @p index (0 to 5), made when the drawing lacks it; null otherwise.
    static KtDbObjectId GeneratePredefHeadBlock(int index);

public Q_SLOTS:
    /// Rows below 6 (and -1) become the current choice; nothing is emitted.
    void slot_currentPredefIndexChanged(int index);

private:
    int m_currentIndex = 0;
    KtDbObjectId m_currentId;
    std::array<ArrowNameInfo, 20> m_rows;
};
