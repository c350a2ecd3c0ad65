#pragma once

#include <Qt>

/**
 * @file
 * Item data roles under which the tree and list controls keep per-item values
 * in column 0. Code reading items straight from the Qt model relies on these
 * numbers. An absent value reads as 0.
 */
/// Item data roles of CKtTreeCtrl and CKtListCtrl.
namespace KtItemRole {
/// Item data (qulonglong; the list's structure insert stores qlonglong).
constexpr int ItemData = Qt::UserRole + 1;
/// Tree: image index (int).
constexpr int Image = Qt::UserRole + 2;
/// Tree: selected-image index (int).
constexpr int SelectedImage = Qt::UserRole + 3;
/// Tree: state bits, TVIS_ values (unsigned int).
constexpr int State = Qt::UserRole + 4;
/// Tree: mirror of the check state (int 0, 1 or 2).
constexpr int CheckMirror = Qt::UserRole + 5;
} // namespace KtItemRole
