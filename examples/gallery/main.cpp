// The gallery of libKtCmdQtUtils widgets on the stand-in host.
//   ktgallery                               opens the window
//   ktgallery --page NAME                   opens it on one page (tree, list, ...)
//   ktgallery [--page NAME] --screenshot F  renders that page (or the first) to a PNG and exits

#include "gallerywindow.h"

#include <KtUiCatalogueLanguageSvr>
#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QTimer>

#include <cstdio>

namespace {

// Takes the screenshot once the page is idle (or after a generous wait).
void screenshotWhenReady(GalleryWindow* window, const QString& path, QElapsedTimer clock)
{
    constexpr qint64 maxWaitMs = 60000;
    if (window->isCurrentPageBusy() && clock.elapsed() < maxWaitMs) {
        QTimer::singleShot(100, window, [window, path, clock] { screenshotWhenReady(window, path, clock); });
        return;
    }
    const bool ok = window->saveScreenshot(path);
    std::fprintf(ok ? stdout : stderr, "%s %s\n", ok ? "wrote" : "could not write", qPrintable(path));
    QApplication::exit(ok ? 0 : 1);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("ktgallery"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Gallery of the libKtCmdQtUtils widgets"));
    parser.addHelpOption();
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
        QStringLiteral("Render the window to a PNG <file> and exit."), QStringLiteral("file"));
    const QCommandLineOption page(
        QStringLiteral("page"), QStringLiteral("Open the gallery on page <name>."), QStringLiteral("name"));
    const QCommandLineOption language(QStringLiteral("language"),
        QStringLiteral("Register the built-in catalogue <lang> (\"en\")."), QStringLiteral("lang"));
    parser.addOption(screenshot);
    parser.addOption(page);
    parser.addOption(language);
    parser.process(app);

    // Without a language service the widgets show their built-in texts.
    KtUiCatalogueLanguageSvr catalogue;
    if (parser.isSet(language) && catalogue.loadBuiltIn(parser.value(language)))
        catalogue.registerWithHost();

    GalleryWindow window;
    if (parser.isSet(page) && !window.showPage(parser.value(page))) {
        std::fprintf(stderr, "no page \"%s\"; pages: %s\n", qPrintable(parser.value(page)),
            qPrintable(window.pageNames().join(QStringLiteral(", "))));
        return 2;
    }
    window.show();

    if (parser.isSet(screenshot)) {
        const QString path = parser.value(screenshot);
        QElapsedTimer clock;
        clock.start();
        QTimer::singleShot(
            300, &window, [&window, path, clock] { screenshotWhenReady(&window, path, clock); });
    }
    return app.exec();
}
