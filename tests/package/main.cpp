// Uses the library through its forwarding headers only; exits 0 when the calls work.
#include <CKtTreeCtrl>
#include <CuiAfxCtrl>
#include <KtApDocManager>
#include <KtDbDatabase>
#include <KtPlotStyleWidgets>
#include <KtPsLineTypeComboBox>
#include <KtString>
#include <KtUiBlockPickers>
#include <QApplication>

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    CKtTreeCtrl tree;
    QTreeWidgetItem* parent = tree.InsertItem(L"图层");
    tree.InsertItem(L"0", 0, 0, parent, nullptr);
    const KtString text = ktutQStringToKtString(parent->text(0));
    TORV_PLOT_SPECIALLY_SPCAE::KtPsLineTypeComboBox lineTypes;
    lineTypes.setCurrentLineTypeIndex(KtPs::kDotted);
    KtUiArrowComboBox arrows;
    arrows.setCurrentIndex(3); // makes the "_Dot" block in the current drawing
    const bool blockMade
        = KtUiArrowComboBox::hasBlock(L"_DOT", curDatabase()) && !arrows.currentArrowId().isNull();
    const bool ok = blockMade && arrows.count() == 21 && tree.GetCount() == 2 && text == KtString(L"图层")
        && ktutResourceText(L"IDS_X", L"default") == QStringLiteral("default") && lineTypes.count() == 32
        && lineTypes.currentIndex() == 3 && lineTypes.getCurrentLineType(3) == KtPs::kDotted;
    return ok ? 0 : 1;
}
