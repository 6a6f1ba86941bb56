// SPDX-License-Identifier: MIT
#include "stdafx.h"

#include "MainWindow.h"
#include "OptionsDialog.h"
#include "PlotMainForm.h"
#include "PlotProgressDialog.h"
#include "PlotProgressForm.h"
#include "PlotPropertiesDialog.h"
#include "PlotPropertiesForm.h"
#include "PlotViewApp.h"
#include "ResourceText.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <functional>
#include <vector>

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
bool renderDialog(const QString &path, const std::function<void()> &show)
{
    bool saved = false;
    QTimer::singleShot(0, [&saved, &path] {
        QWidget *dialog = QApplication::activeModalWidget();
        saved = dialog && savePicture(dialog, path);
        if (dialog)
            dialog->close();
    });
    show();
    return saved;
}

// As it looks while a large plot is read.
bool renderProgress(CMainWindow *window, const QString &path)
{
    constexpr ULONGLONG megabyte = 1024 * 1024;
    CPlotProgressDialog dialog(_T("site-survey.hpgl"), window);
    dialog.Advance(21 * megabyte, 50 * megabyte);
    return savePicture(dialog.GetForm(), path);
}

// Says which file was written; who could not write it has told why.
bool written(bool isWritten, const QString &path)
{
    if (isWritten)
        std::printf("%s\n", qPrintable(QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath())));
    return isWritten;
}

bool saveSummary(CMainWindow *window, const QString &path)
{
    return written(window->SaveSummary(toCString(path)), path);
}

bool print(CMainWindow *window, const QString &path)
{
    return written(window->PrintPlot(toCString(path)), path);
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
    const QCommandLineOption renderOptions(QStringLiteral("render-options"),
                                           QStringLiteral("Renders the options dialog, likewise."),
                                           QStringLiteral("picture"));
    const QCommandLineOption renderReading(QStringLiteral("render-progress"),
                                           QStringLiteral("Renders the progress dialog, likewise."),
                                           QStringLiteral("picture"));
    const QCommandLineOption summary(QStringLiteral("summary"),
                                     QStringLiteral("Writes the summary of the plot to a file and ends."),
                                     QStringLiteral("text file"));
    const QCommandLineOption printing(QStringLiteral("print"),
                                      QStringLiteral("Prints the plot to a PDF file and ends."),
                                      QStringLiteral("PDF file"));
    parser.addOptions({render, renderProperties, renderOptions, renderReading, summary, printing});
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The plots to open."),
                                 QStringLiteral("[file...]"));
    parser.process(qtApplication);

    const bool endsAtOnce = parser.isSet(render) || parser.isSet(renderProperties)
                            || parser.isSet(renderOptions) || parser.isSet(renderReading)
                            || parser.isSet(summary) || parser.isSet(printing);
    if (endsAtOnce)
        application.SetUnattended();
    std::vector<CString> paths;
    for (const QString &file : parser.positionalArguments())
        paths.push_back(toCString(file));
    if (!application.InitInstance(paths))
        return 1;
    CMainWindow *window = application.GetMainWindow();
    int result = 0;
    if (endsAtOnce) {
        QCoreApplication::processEvents();
        const bool saved = (!parser.isSet(render) || savePicture(window->GetForm(), parser.value(render)))
                           && (!parser.isSet(renderProperties)
                               || renderDialog(parser.value(renderProperties),
                                               [window] { window->OnPlotProperties(); }))
                           && (!parser.isSet(renderOptions)
                               || renderDialog(parser.value(renderOptions),
                                               [window] { window->ShowOptions(COptionsDialog::PensPage); }))
                           && (!parser.isSet(renderReading)
                               || renderProgress(window, parser.value(renderReading)))
                           && (!parser.isSet(summary) || saveSummary(window, parser.value(summary)))
                           && (!parser.isSet(printing) || print(window, parser.value(printing)));
        result = saved ? 0 : 1;
    } else {
        result = QApplication::exec();
    }
    application.ExitInstance();
    return result;
}
