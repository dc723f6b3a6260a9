#include "platform/ui/message_box.h"

#include <QApplication>
#include <QDebug>
#include <QMessageBox>
#include <QPixmap>
#include <QPointer>
#include <QPushButton>
#include <QThread>

#include <algorithm>
#include <array>

int LumMessageBox::information(QWidget* parent, const QImage& icon, const QString& text,
                               const QString& button0, const QString& button1, const QString& button2,
                               int buttons) {
    const auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (!application || application->thread() != QThread::currentThread()) {
        qCritical().noquote() << text;
        return -1;
    }
    // set to null when the parent deletes the box while it is open
    QPointer<QMessageBox> box = new QMessageBox(parent);
    box->setModal(true);
    box->setTextFormat(Qt::PlainText); // a text from a message must not load links or pictures
    box->setText(text);
    if (icon.isNull())
        box->setIcon(QMessageBox::Information);
    else
        box->setIconPixmap(QPixmap::fromImage(icon));
    const std::array<const QString*, 3> labels = {&button0, &button1, &button2};
    std::array<QAbstractButton*, 3> made = {};
    for (size_t i = 0; i < labels.size() && static_cast<int>(i) < buttons; ++i)
        if (!labels[i]->isEmpty())
            made[i] = box->addButton(*labels[i], QMessageBox::AcceptRole);
    box->exec();
    if (!box)
        return -1;
    const QAbstractButton* pressed = box->clickedButton();
    const auto place = std::find(made.begin(), made.end(), pressed);
    delete box;
    return pressed && place != made.end() ? static_cast<int>(place - made.begin()) : -1;
}
