#pragma once

#include <QVector>
#include <QWidget>

class CJxPlotStyle;
class QCheckBox;
class QLabel;

namespace TORV_PLOT_SPECIALLY_SPCAE {
class KtPsExtremePointStyleComboBox;
class KtPsFillStyleComboBox;
class KtPsJoinStyleComboBox;
class KtPsLineTypeComboBox;
class KtPsLineWeightComboBox;
class KtPsStyleList;
class KtPsTrueColorComboBox;
} // namespace TORV_PLOT_SPECIALLY_SPCAE

/// A plot style table editor: the style list and one picker per property of the selected style.
class PlotStylePage : public QWidget
{
    Q_OBJECT

public:
    explicit PlotStylePage(QWidget* parent = nullptr);
    ~PlotStylePage() override;

private:
    CJxPlotStyle* currentStyle() const;
    void rebuildList(int currentRow);
    void showStyle();
    void showMenu(bool onItem);
    void newStyle();
    void renameStyle();
    void deleteStyle();
    void colourChosen(int row);
    void updateStatus();

    QVector<CJxPlotStyle*> m_styles;
    TORV_PLOT_SPECIALLY_SPCAE::KtPsStyleList* m_list;
    TORV_PLOT_SPECIALLY_SPCAE::KtPsTrueColorComboBox* m_colour;
    TORV_PLOT_SPECIALLY_SPCAE::KtPsLineTypeComboBox* m_lineType;
    TORV_PLOT_SPECIALLY_SPCAE::KtPsLineWeightComboBox* m_lineWeight;
    QCheckBox* m_inches;
    TORV_PLOT_SPECIALLY_SPCAE::KtPsFillStyleComboBox* m_fill;
    TORV_PLOT_SPECIALLY_SPCAE::KtPsJoinStyleComboBox* m_join;
    TORV_PLOT_SPECIALLY_SPCAE::KtPsExtremePointStyleComboBox* m_end;
    QLabel* m_status;
};
