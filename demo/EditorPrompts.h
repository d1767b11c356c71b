#pragma once

#include <QMap>
#include <QMessageBox>
#include <QString>

class QWidget;

/**
 * The modal windows the drawing editor opens: its questions, its notices and
 * its file choosers. The window asks through one of these, so that a test
 * answers in its place and no modal window ever opens there.
 */
class EditorPrompts
{
public:
  /** A message box as the window means it. */
  struct Question
  {
    QMessageBox::Icon icon = QMessageBox::Question;
    QString title;
    QString text;
    /** Shown below the text, smaller: the list of what a choice entails. */
    QString details;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    /** Captions in place of the standard ones (Save shown as "Save Anyway"). */
    QMap<QMessageBox::StandardButton, QString> captions;
  };

  virtual ~EditorPrompts() = default;

  /** The button chosen; Cancel (or Ok, when there is no Cancel) when the box was closed. */
  virtual QMessageBox::StandardButton ask(QWidget* parent, const Question& question);
  /** An existing file's path, or empty when the user cancelled. */
  virtual QString openFileName(QWidget* parent, const QString& title, const QString& folder, const QString& filter);
  /**
   * The path to write to, with @p suffix added when the name had none, or
   * empty when the user cancelled; the chooser has asked before replacing a file.
   */
  virtual QString saveFileName(QWidget* parent, const QString& title, const QString& suggested, const QString& filter,
                               const QString& suffix);
};
