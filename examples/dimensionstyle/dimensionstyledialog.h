#pragma once

#include <QDialog>

#include <memory>

class CKtTreeCtrl;
class KtUiArrowComboBox;
class KtUiPredefBlockComboBox;
class QTreeWidgetItem;

namespace Ui {
class DimensionStyleDialog;
}

/**
 * A dimension-style dialog as a host command shows it, laid out in Qt
 * Designer from the library's widgets: the styles of the drawing in a tree
 * control, the arrowhead and callout pickers, and line type, line weight and
 * colour combos for the dimension lines.
 *
 * Picking an arrowhead or a callout makes its block in the current drawing.
 * While "Second follows first" is ticked the second arrowhead follows the
 * first, as dimension-style dialogs usually do.
 */
class DimensionStyleDialog : public QDialog
{
    Q_OBJECT

public:
    explicit DimensionStyleDialog(QWidget* parent = nullptr);
    ~DimensionStyleDialog() override;

    KtUiArrowComboBox* firstArrow() const;
    KtUiArrowComboBox* secondArrow() const;
    KtUiArrowComboBox* leaderArrow() const;
    KtUiPredefBlockComboBox* callout() const;
    CKtTreeCtrl* styles() const;
    /// The line under the pickers: the blocks the current choices stand for.
    QString summary() const;

private:
    void fillStyles();
    void firstArrowChanged();
    void styleChosen(QTreeWidgetItem* item);
    void updateSummary();

    std::unique_ptr<Ui::DimensionStyleDialog> m_ui;
};
