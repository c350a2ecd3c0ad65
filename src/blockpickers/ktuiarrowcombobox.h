#pragma once

#include "arrownameinfo.h"
#include "ktcmdqtutils_export.h"

#include <QComboBox>
#include <QList>
#include <QVariantList>
#include <ktdbobject.h>

#include <array>

class KtDbBlockTableRecord;
class KtDbDatabase;

/**
 * @brief Combo box of dimension arrowheads, backed by the blocks of the
 * current drawing.
 *
 * Rows, from the top: the drawing blocks chosen as arrowheads (at most six,
 * most recent first) and a separator when there are any, the 20 standard
 * arrowheads, and "user arrow..." which asks the host's block chooser
 * ("Dialog/CmdsUI/UserArrowDlg") for a block of the drawing. A standard
 * arrowhead becomes a block definition of the drawing when it is picked
 * (GenerateArrowHeadBlock()).
 *
 * Standard rows are addressed by their row number 0 to 19, also where drawing
 * blocks stand above them: findItemByArrowBlockName() returns it and the
 * index slot takes it as such.
 *
 * @see @ref blockpickers
 */
class KTCMDQTUTILS_EXPORT KtUiArrowComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// Fills the rows, then follows its own current index with the slot.
    explicit KtUiArrowComboBox(QWidget* parent = nullptr);
    ~KtUiArrowComboBox() override;

    /// Rebuilds every row from the chosen drawing blocks and the standard table.
    void Initialize();

    /**
     * The block name of the current text: a chosen drawing block's name as it
     * was given, a standard row's upper-case block name (empty for the closed
     * filled arrowhead), else empty. Case-sensitive.
     */
    QString getCurArrowBlockName();
    /**
     * The block of the current text: a chosen drawing block by name, or a
     * standard row's block, created when the drawing lacks it; else null.
     */
    KtDbObjectId GetCurSelArrowHead();
    /// The display text of a standard block name (any case); empty names the closed filled arrowhead.
    QString getArrowDescByBlockName(const QString& blockName);
    /**
     * The item of @p blockName: a standard row's number, else a chosen block's
     * position. An unknown name is put at the front of the chosen blocks
     * (dropping the oldest of six) and the rows are rebuilt. -1 for an empty name.
     */
    int findItemByArrowBlockName(const QString& blockName);
    /// Selects the item of @p blockName (0 when there is none) and returns it; the int is ignored.
    int SelectString(int, QString blockName);
    /// findItemByArrowBlockName() and SelectString() with signals blocked.
    void addItemWithoutIcon(const QString& blockName);
    /**
     * The blocks a user may choose as arrowheads: every block of the current
     * drawing except model and paper space, external, dependent and anonymous
     * ones, as objects {"name", "blockId" (the handle)}.
     */
    QVariantList getBlockArray();
    /// Does nothing.
    void OnSelectOther();

    /// The index of the current choice as the slot and SelectString() left it.
    int currentArrowIndex() const;
    /// The block id the slot stored for the current choice.
    KtDbObjectId currentArrowId() const;
    /// The chosen drawing blocks, most recent first.
    QList<ArrowNameInfo> chosenBlocks() const;

    /// True when @p db's block table can be read and holds a block named @p name.
    static bool hasBlock(const wchar_t* name, KtDbDatabase* db);
    /// The current drawing's block @p name; null when there is none or the table cannot be read.
    static KtDbObjectId GetBlockTableRecordId(const wchar_t* name);
    /**
     * Adds @p record to the current drawing's block table and closes it. False
     * when the table cannot be opened for write (the record stays the
     * caller's) or refuses it (the record is deleted).
     */
    static bool AddRecordToBlockTable(KtDbBlockTableRecord* record, KtDbObjectId& id);
    /**
     * The block of standard row @p index (1 to 19), made in the current drawing
     * when it lacks a block of that name; an existing one is taken as it is.
     * Null for row 0 and out-of-range rows, or when the block cannot be added.
     */
    static KtDbObjectId GenerateArrowHeadBlock(int index);

Q_SIGNALS:
    /// A choice was made; carries currentIndex().
    void arrowItemChanged(int index);

public Q_SLOTS:
    /**
     * Follows the current index (connected by the constructor). Rows 0 to 19
     * are taken as standard row numbers and their block is made when missing;
     * another row is a chosen drawing block, found by name; "user arrow..."
     * puts the previous row back, asks the host's dialog and selects the block
     * it answers. Emits arrowItemChanged() for every index from 0; -1 is ignored.
     */
    void slot_currentArrowIndexChanged(int index);

private:
    int m_currentIndex = 0;
    KtDbObjectId m_currentId;
    std::array<ArrowNameInfo, 20> m_standard;
    QList<ArrowNameInfo> m_chosen;
};
