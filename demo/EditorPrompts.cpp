#include "EditorPrompts.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QPointer>

QMessageBox::StandardButton EditorPrompts::ask(QWidget* parent, const Question& question)
{
  const QMessageBox::StandardButton closed =
    question.buttons.testFlag(QMessageBox::Cancel) ? QMessageBox::Cancel : QMessageBox::Ok;
  // On the heap: the window that asks may be gone when the box's own event loop returns.
  QPointer<QMessageBox> box = new QMessageBox(question.icon, question.title, question.text, question.buttons, parent);
  box->setInformativeText(question.details);
  box->setDefaultButton(question.defaultButton);
  for (auto caption = question.captions.cbegin(); caption != question.captions.cend(); ++caption)
    if (QAbstractButton* button = box->button(caption.key()))
      button->setText(caption.value());
  box->exec();
  if (!box)
    return closed;
  QAbstractButton* clicked = box->clickedButton();
  const QMessageBox::StandardButton chosen = clicked ? box->standardButton(clicked) : closed;
  delete box;
  return chosen == QMessageBox::NoButton ? closed : chosen;
}

QString EditorPrompts::openFileName(QWidget* parent, const QString& title, const QString& folder, const QString& filter)
{
  return QFileDialog::getOpenFileName(parent, title, folder, filter);
}

QString EditorPrompts::saveFileName(QWidget* parent, const QString& title, const QString& suggested, const QString& filter,
                                   const QString& suffix)
{
  QPointer<QFileDialog> dialog = new QFileDialog(parent, title, suggested, filter);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  // The suffix is added before the chooser asks about replacing a file, so it asks about the file written.
  dialog->setDefaultSuffix(suffix);
  if (!suggested.isEmpty())
    dialog->selectFile(suggested);
  const bool accepted = dialog->exec() == QDialog::Accepted;
  if (!dialog)
    return QString();
  const QStringList chosen = dialog->selectedFiles();
  delete dialog;
  return accepted && !chosen.isEmpty() ? chosen.first() : QString();
}
