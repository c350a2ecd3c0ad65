#pragma once

#include <KtPs>
#include <QMetaType>
#include <QString>

/**
 * @file
 * The records the plot-style combo boxes keep as item data (role
 * Qt::UserRole): the display text beside the enumeration value. Each is a Qt
 * meta-type registered on first use under its qualified name
 * ("TORV_PLOT_SPECIALLY_SPCAE::LineTypeMap", ...). A default record, which is
 * also what an item without such data reads as, has an empty name and value 0.
 */

/// The plot-style widgets and the records they keep. @see @ref plotstyle
namespace TORV_PLOT_SPECIALLY_SPCAE {

/// A line type and its display text.
struct LineTypeMap
{
    QString name; ///< the text shown in the combo box
    KtPs::LineType value = KtPs::LineType(0); ///< the plot style's value
};

/// A fill style and its display text.
struct FillStyleMap
{
    QString name; ///< the text shown in the combo box
    KtPs::FillStyle value = KtPs::FillStyle(0); ///< the plot style's value
};

/// A line join style and its display text.
struct JoinStyleMap
{
    QString name; ///< the text shown in the combo box
    KtPs::LineJoinStyle value = KtPs::LineJoinStyle(0); ///< the plot style's value
};

/// A line end style and its display text.
struct EndPointStyleMap
{
    QString name; ///< the text shown in the combo box
    KtPs::LineEndStyle value = KtPs::LineEndStyle(0); ///< the plot style's value
};

} // namespace TORV_PLOT_SPECIALLY_SPCAE

// Declared without Q_DECLARE_TYPEINFO: the records stay complex, non-movable types.
Q_DECLARE_METATYPE(TORV_PLOT_SPECIALLY_SPCAE::LineTypeMap)
Q_DECLARE_METATYPE(TORV_PLOT_SPECIALLY_SPCAE::FillStyleMap)
Q_DECLARE_METATYPE(TORV_PLOT_SPECIALLY_SPCAE::JoinStyleMap)
Q_DECLARE_METATYPE(TORV_PLOT_SPECIALLY_SPCAE::EndPointStyleMap)
