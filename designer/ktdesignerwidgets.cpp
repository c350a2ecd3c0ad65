// The library's widgets as the widget box offers them. CKtMenu is left out on
// purpose (see KtDesignerPlugins).

#include "ktdesignerplugins.h"

#include <CKtComboBox>
#include <CKtEdit>
#include <CKtListCtrl>
#include <CKtRichEditCtrl>
#include <CKtToolBar>
#include <CKtTreeCtrl>
#include <KtPdfPageListWidget>
#include <KtPsExtremePointStyleComboBox>
#include <KtPsFillStyleComboBox>
#include <KtPsJoinStyleComboBox>
#include <KtPsLineTypeComboBox>
#include <KtPsLineWeightComboBox>
#include <KtPsStyleList>
#include <KtPsTrueColorComboBox>
#include <KtUiArrowComboBox>
#include <KtUiPredefBlockComboBox>
#include <StyleListItem>

#include <QVector>

namespace {

using namespace TORV_PLOT_SPECIALLY_SPCAE;

constexpr QSize kComboSize(160, 24);
constexpr QSize kViewSize(200, 160);

template <class Widget>
QWidget* make(QWidget* parent)
{
    return new Widget(parent);
}

// A few standard weights, so that the combo shows rows in Designer as it does in
// a dialog. Designer writes no rows a widget makes itself into the form.
QWidget* makeLineWeightCombo(QWidget* parent)
{
    auto* combo = new KtPsLineWeightComboBox(parent);
    QVector<double> weights{0.0, 0.05, 0.09, 0.13, 0.18, 0.25, 0.35, 0.5, 0.7, 1.0, 1.4, 2.0};
    combo->setLineWeightList(weights);
    return combo;
}

} // namespace

const std::vector<KtDesignerWidget>& ktDesignerWidgets()
{
    // The block pickers fill themselves from the current drawing, which the host
    // always has; the plot-style combos fill themselves in their constructors.
    static const std::vector<KtDesignerWidget> widgets{
        {&CKtTreeCtrl::staticMetaObject, "tree.svg", "Tree control with the foundation-class API", kViewSize,
            make<CKtTreeCtrl>},
        {&CKtListCtrl::staticMetaObject, "list.svg",
            "List control (report view) with the foundation-class API", kViewSize, make<CKtListCtrl>},
        {&CKtComboBox::staticMetaObject, "combo.svg", "Combo box with the foundation-class API", kComboSize,
            make<CKtComboBox>},
        {&CKtEdit::staticMetaObject, "edit.svg", "Single-line edit with the foundation-class API", kComboSize,
            make<CKtEdit>},
        {&CKtRichEditCtrl::staticMetaObject, "richedit.svg", "Rich text edit with the foundation-class API",
            QSize(200, 100), make<CKtRichEditCtrl>},
        {&CKtToolBar::staticMetaObject, "toolbar.svg", "Tool bar with the foundation-class API",
            QSize(200, 28), make<CKtToolBar>},
        {&KtPsLineTypeComboBox::staticMetaObject, "plotstyle.svg", "Line type picker of a plot style",
            kComboSize, make<KtPsLineTypeComboBox>},
        {&KtPsLineWeightComboBox::staticMetaObject, "plotstyle.svg", "Line weight picker of a plot style",
            kComboSize, makeLineWeightCombo},
        {&KtPsFillStyleComboBox::staticMetaObject, "plotstyle.svg", "Fill style picker of a plot style",
            kComboSize, make<KtPsFillStyleComboBox>},
        {&KtPsJoinStyleComboBox::staticMetaObject, "plotstyle.svg", "Line join style picker of a plot style",
            kComboSize, make<KtPsJoinStyleComboBox>},
        {&KtPsExtremePointStyleComboBox::staticMetaObject, "plotstyle.svg",
            "Line end style picker of a plot style", kComboSize, make<KtPsExtremePointStyleComboBox>},
        {&KtPsTrueColorComboBox::staticMetaObject, "color.svg", "Colour picker of a plot style", kComboSize,
            make<KtPsTrueColorComboBox>},
        {&KtPsStyleList::staticMetaObject, "stylelist.svg",
            "The plot styles of a style table, swatch and name", kViewSize, make<KtPsStyleList>},
        {&StyleListItem::staticMetaObject, "stylelist.svg", "One plot style row: colour swatch and name",
            QSize(185, 20), make<StyleListItem>},
        {&KtUiArrowComboBox::staticMetaObject, "arrow.svg",
            "Dimension arrowhead picker backed by drawing blocks", kComboSize, make<KtUiArrowComboBox>},
        {&KtUiPredefBlockComboBox::staticMetaObject, "predefblock.svg",
            "Picker of the predefined callout and tag blocks", kComboSize, make<KtUiPredefBlockComboBox>},
        {&KtPdfPageListWidget::staticMetaObject, "pdfpages.svg",
            "Page thumbnails of a PDF to pick a page from", QSize(200, 240), make<KtPdfPageListWidget>},
    };
    return widgets;
}
