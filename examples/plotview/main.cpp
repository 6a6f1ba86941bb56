// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "MainWindow.h"
#include "PlotMainForm.h"
#include "PlotPropertiesDialog.h"
#include "PlotPropertiesForm.h"
#include "PlotViewApp.h"
#include "ResourceText.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

CPlotViewApp application;

bool savePicture(QWidget *widget, const QString &path)
{
    const bool saved = widget->grab().save(path);
    const QByteArray name = QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath()).toLocal8Bit();
    if (saved)
        std::printf("%s\n", name.constData());
    else
        std::fprintf(stderr, "%s cannot be written.\n", name.constData());
    return saved;
}

// The dialog is rendered from inside its modal loop, as the user sees it.
bool renderDialog(CMainWindow *window, const QString &path)
{
    bool saved = false;
    QTimer::singleShot(0, [&saved, &path] {
        QWidget *dialog = QApplication::activeModalWidget();
        saved = dialog && savePicture(dialog, path);
        if (dialog)
            dialog->close();
    });
    window->OnPlotProperties();
    return saved;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication qtApplication(argc, argv);
    QApplication::setApplicationName(QStringLiteral("plotview"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows HP-GL plots."));
    parser.addHelpOption();
    const QCommandLineOption render(QStringLiteral("render"),
                                    QStringLiteral("Renders the main window to a picture and ends."),
                                    QStringLiteral("picture"));
    const QCommandLineOption renderProperties(QStringLiteral("render-dialog"),
                                              QStringLiteral("Renders the properties dialog, likewise."),
                                              QStringLiteral("picture"));
    parser.addOptions({render, renderProperties});
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The plot to open."),
                                 QStringLiteral("[file]"));
    parser.process(qtApplication);

    const bool renders = parser.isSet(render) || parser.isSet(renderProperties);
    if (renders)
        application.SetUnattended();
    const QStringList files = parser.positionalArguments();
    const CString path = files.isEmpty() ? CString() : toCString(files.first());
    if (!application.InitInstance(files.isEmpty() ? nullptr : static_cast<LPCTSTR>(path)))
        return 1;
    CMainWindow *window = application.GetMainWindow();
    int result = 0;
    if (renders) {
        QCoreApplication::processEvents();
        const bool saved = (!parser.isSet(render) || savePicture(window->GetForm(), parser.value(render)))
                           && (!parser.isSet(renderProperties)
                               || renderDialog(window, parser.value(renderProperties)));
        result = saved ? 0 : 1;
    } else {
        result = QApplication::exec();
    }
    application.ExitInstance();
    return result;
}
