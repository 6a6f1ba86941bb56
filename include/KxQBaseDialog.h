// SPDX-License-Identifier: MIT
#pragma once

#include "KxExport.h"

#include <QtWidgets/QDialog>

/// The dialog widget that a host derives its dialogs from: a QDialog in a tool window that centres itself on
/// the primary screen, hands Escape to OnCancel() and can be ended with an identifier. It has no meta-object of
/// its own.
class KX_EXPORT QBaseDialog : public QDialog
{
public:
    /// A null parent stands for the host's main window, see lumo_tnorMainWnd().
    explicit QBaseDialog(QWidget *parent = nullptr);
    ~QBaseDialog() override;

    /// Runs the dialog, then calls execCallBack() with the identifier that ended it, -1 when none did.
    /// \return the result of QDialog::exec()
    int exec() override;

    /// A hook: accepts the dialog, past any override of accept().
    virtual void OnOK();
    /// A hook, also for Escape: rejects the dialog, past any override of reject().
    virtual void OnCancel();
    /// Accepts the dialog and remembers which identifier ended it.
    virtual void endById(int id);
    /// A hook after the modal loop. Does nothing here.
    virtual void execCallBack(int id);

protected:
    /// Escape goes to OnCancel() and no further; everything else to QDialog.
    void keyPressEvent(QKeyEvent *event) override;
    /// Centres the dialog on the primary screen, at every show.
    void showEvent(QShowEvent *event) override;

    /// The identifier that ended the current run, -1 when none.
    int m_endId;
};
