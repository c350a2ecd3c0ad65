#pragma once

// The six predefined callout and tag blocks of KtUiPredefBlockComboBox.

#include <ktdbobject.h>

namespace KtPredefBlocks {

constexpr int kCount = 6;

/// The block name of row @p row (0 to 5), as drawings know it.
const wchar_t* blockName(int row);
/**
 * The block of row @p index in the current drawing, made in the drawing's
 * measurement when missing; null outside 0 to 5 or when it cannot be added.
 */
KtDbObjectId generate(int index);

} // namespace KtPredefBlocks
