#pragma once

#include <QWidget>

#include <memory>

class KtDbPdfDefinition;
class KtPdfPageListWidget;
class QCheckBox;
class QLabel;
class QListWidgetItem;

/// A page picker for inserting a PDF underlay: the page list and the chosen page shown larger.
class PdfPreviewPage : public QWidget
{
    Q_OBJECT

public:
    explicit PdfPreviewPage(QWidget* parent = nullptr);
    ~PdfPreviewPage() override;

private:
    void open(const QString& file);
    void showPage(QListWidgetItem* item);

    KtPdfPageListWidget* m_pages;
    QCheckBox* m_large;
    QLabel* m_preview;
    QLabel* m_status;
    QString m_file;
    std::unique_ptr<KtDbPdfDefinition> m_definition; // renders the chosen page large
};
