// The gallery of libKtCmdQtUtils widgets on the stand-in host.
//   ktgallery                    opens the window
//   ktgallery --screenshot FILE  renders the window to a PNG and exits

#include "gallerywindow.h"

#include <KtUiCatalogueLanguageSvr>
#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

#include <cstdio>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("ktgallery"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Gallery of the libKtCmdQtUtils widgets"));
    parser.addHelpOption();
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
        QStringLiteral("Render the window to a PNG <file> and exit."), QStringLiteral("file"));
    const QCommandLineOption language(QStringLiteral("language"),
        QStringLiteral("Register the built-in catalogue <lang> (\"en\")."), QStringLiteral("lang"));
    parser.addOption(screenshot);
    parser.addOption(language);
    parser.process(app);

    // Without a language service the widgets show their built-in texts.
    KtUiCatalogueLanguageSvr catalogue;
    if (parser.isSet(language) && catalogue.loadBuiltIn(parser.value(language)))
        catalogue.registerWithHost();

    GalleryWindow window;
    window.show();

    if (parser.isSet(screenshot)) {
        const QString path = parser.value(screenshot);
        QTimer::singleShot(300, &window, [&window, path] {
            const bool ok = window.saveScreenshot(path);
            std::fprintf(ok ? stdout : stderr, "%s %s\n", ok ? "wrote" : "could not write", qPrintable(path));
            QApplication::exit(ok ? 0 : 1);
        });
    }
    return app.exec();
}
