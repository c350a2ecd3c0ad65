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

namespace TORV_PLOT_SPECIALLY_SPCAE {

/// A line type and its display text.
struct LineTypeMap
{
    QString name;
    KtPs::LineType value = KtPs::LineType(0);
};

/// A fill style and its display text.
struct FillStyleMap
{
    QString name;
    KtPs::FillStyle value = KtPs::FillStyle(0);
};

/// A line join style and its display text.
struct JoinStyleMap
{
    QString name;
    KtPs::LineJoinStyle value = KtPs::LineJoinStyle(0);
};

/// A line end style and its display text.
struct EndPointStyleMap
{
    QString name;
    KtPs::LineEndStyle value = KtPs::LineEndStyle(0);
};

} // namespace TORV_PLOT_SPECIALLY_SPCAE

// Declared without Q_DECLARE_TYPEINFO: the records stay complex, non-movable types.
Q_DECLARE_METATYPE(TORV_PLOT_SPECIALLY_SPCAE::LineTypeMap)
Q_DECLARE_METATYPE(TORV_PLOT_SPECIALLY_SPCAE::FillStyleMap)
Q_DECLARE_METATYPE(TORV_PLOT_SPECIALLY_SPCAE::JoinStyleMap)
Q_DECLARE_METATYPE(TORV_PLOT_SPECIALLY_SPCAE::EndPointStyleMap)
