#include "ControlWindow.h"
#include "PropUiQLineEdit.h"
#include "PropUiTranslations.h"
#include "RecordingBag.h"
#include "RunningModule.h"
#include "TestValues.h"
#include <QtTest>
#include <QtWidgets>

// Built with the paths of the library's sources, the demo's catalogues and Qt's lupdate, so
// that the catalogue is checked against the sources as they are now.
#ifndef PROP_SOURCE_DIR
#error "PROP_SOURCE_DIR must name the library's source folder"
#endif
#ifndef PROP_DEMO_TRANSLATIONS
#error "PROP_DEMO_TRANSLATIONS must name the demo's catalogue folder"
#endif
#ifndef PROP_LUPDATE
#error "PROP_LUPDATE must name Qt's lupdate"
#endif

namespace
{

struct Message
{
  QString context;
  QString source;
  QString comment;
  /** The translations; several for a message with plural forms. */
  QStringList translations;
  QString type;
  QString key() const { return context + QLatin1Char('|') + source + QLatin1Char('|') + comment; }
};

QVector<Message> readCatalogue(const QString& path, QString* error)
{
  QVector<Message> messages;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
  {
    *error = file.errorString();
    return messages;
  }
  QXmlStreamReader xml(&file);
  QString context;
  Message message;
  while (!xml.atEnd())
  {
    xml.readNext();
    if (xml.isStartElement())
    {
      const auto name = xml.name();
      if (name == QLatin1String("context"))
        context.clear();
      else if (name == QLatin1String("name"))
        context = xml.readElementText();
      else if (name == QLatin1String("message"))
        message = Message{context, {}, {}, {}, {}};
      else if (name == QLatin1String("source"))
        message.source = xml.readElementText();
      else if (name == QLatin1String("comment"))
        message.comment = xml.readElementText();
      else if (name == QLatin1String("translation"))
      {
        message.type = xml.attributes().value(QLatin1String("type")).toString();
        // Plural forms come as <numerusform> children; a plain message as text.
        QString text;
        while (xml.readNext() != QXmlStreamReader::Invalid && !(xml.isEndElement() && xml.name() == QLatin1String("translation")))
          if (xml.isCharacters())
            text += xml.text();
          else if (xml.isStartElement() && xml.name() == QLatin1String("numerusform"))
            message.translations << xml.readElementText();
        if (message.translations.isEmpty())
          message.translations << text;
      }
    }
    else if (xml.isEndElement() && xml.name() == QLatin1String("message"))
      messages << message;
  }
  if (xml.hasError())
    *error = xml.errorString();
  return messages;
}

/** The %1, %2 ... a text expects to be filled with, in order of number. */
QStringList placeholders(const QString& text)
{
  QStringList found;
  QRegularExpressionMatchIterator it = QRegularExpression(QStringLiteral("%(\\d+|n)")).globalMatch(text);
  while (it.hasNext())
    found << it.next().captured(0);
  found.sort();
  found.removeDuplicates();
  return found;
}

} // namespace

class TestTranslations : public QObject
{
  Q_OBJECT
  RunningModule module;

private slots:
  // A text added to the sources without a translation fails here, on a
  // clean checkout: the sources are read afresh, not the build's catalogue.
  // The demo's catalogue is held to the same rule over the sources its list names.
  void catalogueTranslatesEveryTextOfTheSources_data()
  {
    QTest::addColumn<QString>("shippedPath");
    QTest::addColumn<QStringList>("sources");
    QTest::addColumn<QString>("folder");
    const QString library = QStringLiteral(PROP_SOURCE_DIR);
    QStringList libraryDirs;
    for (const char* dir : {"contract", "module", "controls", "actions", "cad", "mvc"})
      libraryDirs << library + QLatin1Char('/') + QLatin1String(dir);
    QTest::newRow("library") << library + QStringLiteral("/res/translations/propwidgets_de.ts") << libraryDirs << library;
    const QString demo = QStringLiteral(PROP_DEMO_TRANSLATIONS);
    QTest::newRow("demo") << demo + QStringLiteral("/propwidgets-demo_de.ts") << QStringList{QStringLiteral("@sources.lst")}
                          << demo;
  }
  void catalogueTranslatesEveryTextOfTheSources()
  {
    QFETCH(QString, shippedPath);
    QFETCH(QStringList, sources);
    QFETCH(QString, folder);
    QTemporaryDir scratch;
    QVERIFY(scratch.isValid());
    const QString freshPath = scratch.filePath(QStringLiteral("fresh.ts"));
    QStringList arguments{QStringLiteral("-silent"), QStringLiteral("-locations"), QStringLiteral("none")};
    arguments << sources << QStringLiteral("-ts") << freshPath;
    QProcess lupdate;
    lupdate.setWorkingDirectory(folder);
    lupdate.start(QStringLiteral(PROP_LUPDATE), arguments);
    QVERIFY2(lupdate.waitForFinished(60000), qPrintable(lupdate.errorString()));
    QVERIFY2(lupdate.exitStatus() == QProcess::NormalExit && lupdate.exitCode() == 0,
             lupdate.readAllStandardError().constData());

    QString error;
    const QVector<Message> fresh = readCatalogue(freshPath, &error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QVERIFY2(!fresh.isEmpty(), "lupdate found no texts in the sources");
    const QVector<Message> shippedMessages = readCatalogue(shippedPath, &error);
    QVERIFY2(error.isEmpty(), qPrintable(shippedPath + QStringLiteral(": ") + error));
    QHash<QString, Message> shipped;
    for (const Message& message : shippedMessages)
      shipped.insert(message.key(), message);

    QStringList faults;
    for (const Message& message : fresh)
    {
      const QString where = message.context + QStringLiteral(": \"") + message.source + QLatin1Char('"');
      const auto found = shipped.constFind(message.key());
      if (found == shipped.constEnd())
        faults << QStringLiteral("missing ") + where;
      else if (!found->type.isEmpty())
        faults << found->type + QLatin1Char(' ') + where;
      else
        for (const QString& translation : found->translations)
          if (translation.trimmed().isEmpty())
            faults << QStringLiteral("empty ") + where;
          else if (placeholders(translation) != placeholders(message.source))
            faults << QStringLiteral("placeholders differ in ") + where;
    }
    QVERIFY2(faults.isEmpty(), qPrintable(QStringLiteral("run the update_translations (or update_demo_translations) target and translate:\n  ") +
                                          faults.join(QStringLiteral("\n  "))));
  }

  // The catalogue is in the library itself: a host installs it and the controls speak the language,
  // with no file to deploy. Assistive technology hears the new language at once, not at the next refresh.
  void installedCatalogueReachesTheControls()
  {
    QVERIFY(propUiTranslationsPath().startsWith(QLatin1Char(':')));
    QCOMPARE(propUiInstallTranslator(QLocale(QLocale::French, QLocale::France)), static_cast<QTranslator*>(nullptr));
    // GIVEN a shown control over a read-only item whose objects differ
    RecordingBag bag;
    const int item = bag.addItem(QStringLiteral("Radius"), realValue(2, true));
    bag.item(item).editable = false;
    PropUiQLineEdit* control = boundControl<PropUiQLineEdit>(bag, item);
    ControlWindow window(control);
    QVERIFY(window.showActive());
    const auto announced = [control]() { return control->lineEdit()->accessibleDescription().section(QStringLiteral(", "), -1); };
    QTRY_COMPARE(announced(), QStringLiteral("read-only"));

    // WHEN the German catalogue is installed, for a country without one of its own
    QTranslator* translator = propUiInstallTranslator(QLocale(QLocale::German, QLocale::Switzerland));
    QVERIFY(translator);

    // THEN the shown control announces in German, and a new one shows German
    QTRY_COMPARE(announced(), QStringLiteral("schreibgeschützt"));
    QScopedPointer<PropUiQLineEdit> fresh(boundControl<PropUiQLineEdit>(bag, item));
    const QString varies = fresh->lineEdit()->placeholderText();
    QCoreApplication::removeTranslator(translator);
    delete translator;
    QVERIFY(!varies.isEmpty());
    QVERIFY2(varies != QStringLiteral("*varies*"), qPrintable(varies));
    QTRY_COMPARE(announced(), QStringLiteral("read-only"));
  }
};

QTEST_MAIN(TestTranslations)
#include "tst_Translations.moc"
