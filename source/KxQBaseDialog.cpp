// SPDX-License-Identifier: MIT
#include "KxQBaseDialog.h"

#include "KxAfxApp.h"
#include "KxAfxWin.h"

#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>

namespace {

constexpr int noEndId = -1;

} // namespace

QBaseDialog::QBaseDialog(QWidget *parent)
    : QDialog(parent ? parent : KxWidgetFromHwnd(lumo_tnorMainWnd()), Qt::Tool)
    , m_endId(noEndId)
{
}

QBaseDialog::~QBaseDialog() = default;

int QBaseDialog::exec()
{
    m_endId = noEndId;
    const QPointer<QBaseDialog> self(this);
    const int result = QDialog::exec();
    if (self)
        execCallBack(m_endId);
    if (self)
        m_endId = noEndId;
    return result;
}

void QBaseDialog::OnOK()
{
    QDialog::accept();
}

void QBaseDialog::OnCancel()
{
    QDialog::reject();
}

void QBaseDialog::endById(int id)
{
    const QPointer<QBaseDialog> self(this);
    accept();
    if (self)
        m_endId = id;
}

void QBaseDialog::execCallBack(int)
{
}

void QBaseDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        OnCancel();
    else
        QDialog::keyPressEvent(event);
}

void QBaseDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (const QScreen *screen = QGuiApplication::primaryScreen())
        move(screen->availableGeometry().center() - rect().center());
}
