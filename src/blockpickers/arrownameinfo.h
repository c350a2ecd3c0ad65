#pragma once

#include <QString>

/**
 * @brief One entry of the block pickers: the text shown, the block it stands
 * for and the value kept as the item's data.
 *
 * In KtUiArrowComboBox @c blockName is upper-case (the key a block is found
 * again by); in KtUiPredefBlockComboBox it is the block's own mixed-case name.
 *
 * @see @ref blockpickers
 */
struct ArrowNameInfo
{
    /// The text shown in the list.
    QString name;
    /// The block's name; empty for the closed filled arrowhead, which has no block.
    QString blockName;
    /// The item data of a standard row (icon tile of a predefined row).
    int data = 0;
};
