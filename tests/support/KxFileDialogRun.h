// SPDX-License-Identifier: MIT
#pragma once

#include "KxModalRun.h"

#include "KxQtFileDialog.h"

#include <QtGui/QClipboard>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include <functional>
#include <string>

/// \file
/// File dialogs driven the way a person does it.

using FileDialogStep = std::function<void(QFileDialog &)>;

/// All file dialogs of the process, shown or not, with a parent or without.
inline QList<QFileDialog *> allFileDialogs()
{
    QList<QFileDialog *> found;
    for (QWidget *widget : QApplication::allWidgets()) {
        if (auto *dialog = qobject_cast<QFileDialog *>(widget))
            found.append(dialog);
    }
    return found;
}

/// A row of what holds; it leaves no dialog behind.
using Promise = void (*)();
Q_DECLARE_METATYPE(Promise)

inline void runPromise()
{
    QFETCH(Promise, promise);
    promise();
    QCOMPARE(allFileDialogs().size(), 0);
}

/// Runs `run`; does the step with the file dialog that is modal then.
template<class Run>
auto runFileDialog(const Run &run, const FileDialogStep &step)
{
    return kxRunModal(run, [&step] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        step(*dialog);
    });
}

inline QLineEdit &nameEditOf(QFileDialog &dialog)
{
    return *dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
}

/// Closes the list of proposals under the field for the name, which takes the keys while it is there.
inline void closeProposals()
{
    while (QWidget *popup = QApplication::activePopupWidget()) {
        QTest::keyClick(popup, Qt::Key_Escape);
        QVERIFY(QApplication::activePopupWidget() != popup);
    }
}

/// Selects what stands in the field for the name, and gives it the focus: otherwise the list writes into it.
inline void enterNameEdit(QFileDialog &dialog)
{
    QLineEdit &edit = nameEditOf(dialog);
    QApplication::setActiveWindow(&dialog);     // offscreen, one that is shown again does not become active
    edit.setFocus();
    QTRY_VERIFY(edit.hasFocus());
    edit.selectAll();
}

/// Types over what stands in the field for the name.
inline void typeName(QFileDialog &dialog, const QString &name)
{
    enterNameEdit(dialog);
    QLineEdit &edit = nameEditOf(dialog);
    QTest::keyClicks(&edit, name);
    QCOMPARE(edit.text(), name);
    closeProposals();
}

inline void pressEnter(QFileDialog &dialog)
{
    closeProposals();
    QTest::keyClick(&nameEditOf(dialog), Qt::Key_Return);
}

inline void pressEscape(QFileDialog &dialog)
{
    closeProposals();
    QTest::keyClick(&nameEditOf(dialog), Qt::Key_Escape);
}

/// The step that chooses by name.
inline FileDialogStep choose(const QString &name)
{
    return [name](QFileDialog &dialog) {
        typeName(dialog, name);
        pressEnter(dialog);
    };
}

/// The step that looks, and cancels then.
inline FileDialogStep lookAndCancel(const FileDialogStep &look)
{
    return [look](QFileDialog &dialog) {
        look(dialog);
        pressEscape(dialog);
    };
}

inline QAbstractItemView &fileListOf(QFileDialog &dialog)
{
    return *dialog.findChild<QAbstractItemView *>(QStringLiteral("listView"));
}

/// The names that the list shows; a thread fills it.
inline QStringList listedNames(QFileDialog &dialog)
{
    const QAbstractItemView &list = fileListOf(dialog);
    QStringList names;
    for (int row = 0; row < list.model()->rowCount(list.rootIndex()); ++row)
        names.append(list.model()->index(row, 0, list.rootIndex()).data().toString());
    names.sort();
    return names;
}

/// The step that chooses files by their quoted names, once the list shows `listed`: the list selects them.
/// They are pasted, as Qt's list loses the selection of a name while the next one is typed.
inline FileDialogStep chooseSeveral(const QStringList &names, const QStringList &listed)
{
    return [names, listed](QFileDialog &dialog) {
        QTRY_COMPARE(listedNames(dialog), listed);
        enterNameEdit(dialog);
        const QString text = QLatin1Char('"') + names.join(QStringLiteral("\" \"")) + QLatin1Char('"');
        QApplication::clipboard()->setText(text);
        QTest::keyClick(&nameEditOf(dialog), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(nameEditOf(dialog).text(), text);
        QCOMPARE(dialog.selectedFiles().size(), names.size());
        pressEnter(dialog);
    };
}

/// Counts the times that a window was told that a modal dialog blocks it.
class BlockCount : public QObject
{
public:
    explicit BlockCount(QWidget &window) { window.installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::WindowBlocked;
        return false;
    }
};

/// Answers message boxes while it lives, and counts them.
class MessageBoxAnswer
{
public:
    explicit MessageBoxAnswer(QMessageBox::StandardButton answer)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, answer] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!box)
                return;
            ++m_count;
            if (QAbstractButton *button = box->button(answer))
                QTest::mouseClick(button, Qt::LeftButton);
            else
                box->done(-1);
        });
        m_timer.start(1);
    }

    int count() const { return m_count; }

private:
    QTimer m_timer;
    int m_count = 0;
};

/// What is protected becomes nameable; the texts of the record live here.
class OpenedFields : public KxQtFileDialog
{
public:
    using KxQtFileDialog::KxQtFileDialog;

    using KxQtFileDialog::m_args;
    using KxQtFileDialog::m_attri;
    using KxQtFileDialog::m_dialog;
    using KxQtFileDialog::m_nSelCount;
    using KxQtFileDialog::m_ofn;
    using KxQtFileDialog::m_selectedFiles;
    using KxQtFileDialog::m_selectedNameFilter;
    using KxQtFileDialog::m_strFileExt;
    using KxQtFileDialog::m_strFileName;
    using KxQtFileDialog::m_strPathName;
    using KxQtFileDialog::m_unused;

    void setTitle(const std::wstring &text)
    {
        m_title = text;
        m_ofn.lpstrTitle = m_title.c_str();
    }
    void setDirectory(const std::wstring &text)
    {
        m_directory = text;
        m_ofn.lpstrInitialDir = m_directory.c_str();
    }
    void setFilters(const std::wstring &text)
    {
        m_filters = text;
        m_ofn.lpstrFilter = m_filters.c_str();
    }
    void setFile(const std::wstring &text)
    {
        m_file = text;
        m_ofn.lpstrFile = &m_file[0];
    }

    INT_PTR run(const FileDialogStep &step)
    {
        return runFileDialog([this] { return DoModal(); }, step);
    }

    /// The results as one text.
    QString results() const
    {
        return QStringList({QString::fromStdWString(m_strPathName), QString::fromStdWString(m_strFileName),
                            QString::fromStdWString(m_strFileExt)})
            .join(QLatin1Char('|'));
    }

private:
    std::wstring m_title;
    std::wstring m_directory;
    std::wstring m_filters;
    std::wstring m_file;
};
