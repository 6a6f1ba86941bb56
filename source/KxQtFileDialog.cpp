// SPDX-License-Identifier: MIT
#include "KxQtFileDialog.h"

#include "KxText_p.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtWidgets/QFileDialog>

namespace {

// The bare patterns of a filter. That one index is 0 means something else than that there is none.
QString patternsOf(const QString &filter)
{
    const int open = filter.indexOf(QLatin1Char('('));
    const int close = filter.indexOf(QLatin1Char(')'));
    const bool isEnclosed = open != 0 && close != 0 && close > open;
    return isEnclosed ? filter.mid(open + 1, close - open - 1) : filter;
}

} // namespace

KxQtFileDialog::KxQtFileDialog(BOOL bOpenFileDialog, const wchar_t *lpszDefExt, const wchar_t *lpszFileName, DWORD,
                               const wchar_t *lpszFilter, CWnd *pParentWnd, DWORD, BOOL)
    : m_dialog(nullptr)
    , m_nSelCount(0)
    , m_ofn()
{
    m_args.parent = reinterpret_cast<QWidget *>(pParentWnd);
    m_args.filter = toQString(lpszFilter);
    if (bOpenFileDialog) {
        m_attri.acceptMode = QFileDialog::AcceptOpen;
        m_attri.fileMode = QFileDialog::ExistingFiles;
    } else {
        m_attri.acceptMode = QFileDialog::AcceptSave;
        m_attri.fileMode = QFileDialog::AnyFile;
        m_attri.defaultSuffix = toQString(lpszDefExt);
        m_attri.fileName = toQString(lpszFileName);
    }
    initOpenFileName();
}

KxQtFileDialog::~KxQtFileDialog()
{
    delete m_dialog;
}

void KxQtFileDialog::initOpenFileName()
{
    static const wchar_t empty[] = L"";
    m_ofn.lpstrFilter = empty;
    m_ofn.lpstrInitialDir = empty;
    m_ofn.lpstrTitle = empty;
    m_ofn.lpstrDefExt = empty;
    m_ofn.lpTemplateName = empty;
    m_ofn.lpstrCustomFilter = nullptr;
    m_ofn.nFilterIndex = 0;
    m_ofn.lpstrFile = nullptr;
    m_ofn.lpstrFileTitle = nullptr;
}

void KxQtFileDialog::readRecord()
{
    m_args.caption = toQString(m_ofn.lpstrTitle);
    const QString directory = toQString(m_ofn.lpstrInitialDir).replace(QLatin1Char('\\'), QLatin1Char('/'));
    const int slash = directory.lastIndexOf(QLatin1Char('/'));
    const bool namesFile = directory.indexOf(QLatin1Char('.'), slash + 1) >= 0;
    m_args.directory = namesFile ? directory.left(slash) : directory;

    m_attri.filterText = toQString(m_ofn.lpstrFilter);
    m_attri.nameFilters = m_attri.filterText.split(QLatin1String(";;"));
    m_attri.selectFile = toQString(m_ofn.lpstrFile);
    if (m_attri.acceptMode == QFileDialog::AcceptOpen) {
        for (QString &filter : m_attri.nameFilters)
            filter = patternsOf(filter);
    }
    const DWORD count = static_cast<DWORD>(m_attri.nameFilters.size());
    const bool isInList = m_ofn.nFilterIndex >= 1 && m_ofn.nFilterIndex <= count;
    m_attri.selectedFilter = m_attri.nameFilters.at(isInList ? static_cast<int>(m_ofn.nFilterIndex - 1) : 0);
}

void KxQtFileDialog::makeDialog()
{
    delete m_dialog;
    m_dialog = new QFileDialog(m_args.parent, m_args.caption, m_args.directory, m_args.filter);
    // A parent may delete it first.
    QObject::connect(m_dialog, &QObject::destroyed, m_dialog, [this] { m_dialog = nullptr; });
    // A desktop's own dialog would show neither the labels nor the size.
    m_dialog->setOption(QFileDialog::DontUseNativeDialog);
    m_dialog->setAcceptMode(static_cast<QFileDialog::AcceptMode>(m_attri.acceptMode));
    m_dialog->selectFile(m_attri.selectFile);
    m_dialog->setFileMode(static_cast<QFileDialog::FileMode>(m_attri.fileMode));
    m_dialog->setNameFilters(m_attri.nameFilters);
    m_dialog->selectNameFilter(m_attri.selectedFilter);
    // As lupdate finds them.
    m_dialog->setLabelText(QFileDialog::FileType,
                           QCoreApplication::translate("KxQtFileDialog", "File Format:"));
    m_dialog->setLabelText(QFileDialog::Reject, QCoreApplication::translate("KxQtFileDialog", "Cancel "));
    m_dialog->setFixedSize(600, 400);
}

INT_PTR KxQtFileDialog::DoModal()
{
    readRecord();
    makeDialog();
    m_dialog->setModal(true); // It is shown before exec() could make it so.
    m_dialog->setVisible(true);
    m_dialog->setDirectory(m_args.directory);
    if (m_dialog->exec() != QDialog::Accepted || !m_dialog)
        return IDCANCEL;
    m_selectedFiles = m_dialog->selectedFiles();
    m_nSelCount = m_selectedFiles.size();
    m_selectedNameFilter = m_dialog->selectedNameFilter();
    PraseFileInfo();
    return IDOK;
}

POSITION KxQtFileDialog::GetStartPosition() const
{
    return reinterpret_cast<POSITION>(m_nSelCount);
}

CString KxQtFileDialog::GetNextPathName(POSITION &pos) const
{
    const auto left = reinterpret_cast<LONGLONG>(pos);
    if (m_selectedFiles.isEmpty())
        return CString();
    if (left < 1 || left > m_selectedFiles.size()) {
        pos = nullptr;
        return CString();
    }
    pos = reinterpret_cast<POSITION>(left - 1);
    return toCString(completed(m_selectedFiles.at(m_selectedFiles.size() - static_cast<int>(left))));
}

void KxQtFileDialog::PraseFileInfo()
{
    if (m_selectedFiles.isEmpty())
        return;
    const QString file = completed(m_selectedFiles.first());
    const QFileInfo info(file);
    m_strPathName = toCString(file);
    m_strFileName = toCString(info.fileName());
    m_strFileExt = toCString(info.suffix());
    m_ofn.nFilterIndex = static_cast<DWORD>(m_attri.nameFilters.indexOf(m_selectedNameFilter) + 1);
}

QString KxQtFileDialog::completed(const QString &file) const
{
    const QString extension = QLatin1Char('.') + m_selectedNameFilter.section(QLatin1Char('.'), -1);
    const bool isCompleted = extension == QLatin1String(".svf") || extension == QLatin1String(".scr");
    return isCompleted && !file.endsWith(extension) ? file + extension : file;
}
