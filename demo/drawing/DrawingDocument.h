#pragma once

#include "DrawingEntity.h"
#include "OdDbDatabase.h"
#include <QObject>
#include <QString>
#include <QVector>
#include <algorithm>
#include <functional>
#include <limits>
#include <map>
#include <unordered_map>
#include <memory>
#include <vector>

/** A block's definition as inserts draw it: its base point and its entities. */
struct DrawingBlock
{
  DrawingPoint basePoint;
  std::vector<DrawingEntity> entities;
};

/** A text style of the drawing, as its STYLE record gives it. */
struct DrawingTextStyle
{
  /** The font file the record names (e.g. "txt", "isocp.shx", "arial.ttf"). */
  QString font;
  /** A fixed text height, 0 when each text gives its own. */
  double height = 0.0;
  double widthFactor = 1.0;
  /** In degrees. */
  double oblique = 0.0;
};

/** The file a document was read from, kept to be written again as it was, but for the entities' edits. */
struct DrawingSource
{
  /** The file's bytes; shared, never copied. */
  QByteArray bytes;
  /** Where the model-space entities are: from the first entity's record to the end of its section. */
  int entitiesBegin = -1;
  int entitiesEnd = -1;
  /** Where an entities section goes when the file has none (before its objects, or its end). */
  int entitiesPlace = -1;
  /** The file's version, as its header's $ACADVER gives it ("AC1009" for R12, "AC1015" for 2000...). */
  QByteArray version;
  /** The line end the file uses. */
  QByteArray lineEnd = "\n";

  bool isEmpty() const { return bytes.isEmpty(); }
};

/**
 * An open drawing: its tables in the drawing database, its model-space
 * entities and the contents of its blocks. Every change of an entity goes
 * through replaceEntities() or changeEntities(), so that views and the
 * palette hear of it.
 */
class DrawingDocument : public QObject
{
  Q_OBJECT

public:
  explicit DrawingDocument(QObject* parent = nullptr);
  ~DrawingDocument() override;

  OdDbDatabase& database() { return *m_database; }
  const OdDbDatabase& database() const { return *m_database; }

  const std::vector<DrawingEntity>& entities() const { return m_entities; }
  /** Every entity's handle, in the entities' order: a selection of everything shares it rather than listing a million anew. */
  const QVector<quint64>& handles() const { return m_handles; }
  /** Null when no entity has the handle. */
  const DrawingEntity* entity(quint64 handle) const;
  /** Adds at the end; a handle that is taken or not keepsHandle() is replaced by a new one. Returns the handle. */
  quint64 addEntity(DrawingEntity entity);
  /** New entities take handles above @p handle: a file's tables and objects have handles of their own. */
  void reserveHandlesUpTo(quint64 handle) { m_lastHandle = std::max(m_lastHandle, handle); }
  /** Adds them all at the end, handles as addEntity() gives them; a reader's million entities move in whole. */
  void addEntities(std::vector<DrawingEntity> entities);
  /**
   * Whether a handle can be an entity's: not zero, and not in the top half
   * of the range, where the new handles counting on from it would run out.
   */
  static bool keepsHandle(quint64 handle) { return handle != 0 && handle <= std::numeric_limits<quint64>::max() / 2; }

  /** Block definitions by name, as the file spells it. */
  const std::map<QString, DrawingBlock>& blocks() const { return m_blocks; }
  DrawingBlock& block(const QString& name) { return m_blocks[name]; }

  /** Text styles by name, as the file spells it. */
  const std::map<QString, DrawingTextStyle>& textStyles() const { return m_textStyles; }
  DrawingTextStyle& textStyle(const QString& name) { return m_textStyles[name]; }

  /** A numeric header variable of the file (e.g. "$LTSCALE"), or @p fallback when the file has none. */
  double headerReal(const QString& variable, double fallback) const
  {
    const auto found = m_headerReals.find(variable);
    return found == m_headerReals.end() ? fallback : found->second;
  }
  void setHeaderReal(const QString& variable, double value) { m_headerReals[variable] = value; }

  /** The file the document was read from; empty for a drawing made in code. */
  const DrawingSource& source() const { return m_source; }
  void setSource(DrawingSource source) { m_source = std::move(source); }

  /** Inserts nested deeper than this are a loop in the drawing, not a design, and are not drawn. */
  static constexpr int kMaxBlockDepth = 8;
  /**
   * How many entities drawing the model space takes: an insert counts as its
   * block's entities, nested as deep as they are drawn, and a multi-line text
   * as its lines. The count stops at
   * @p limit, as blocks that insert each other many times make it grow beyond any number.
   */
  quint64 drawnEntityCount(quint64 limit) const;

  /**
   * Puts the given entities in place of those with the same handles, marked
   * edited, where they were read from and in which space staying as they
   * were; unknown handles are skipped.
   */
  void replaceEntities(const std::vector<DrawingEntity>& changed);
  /**
   * Changes the entities with @p handles where they are, @p change taking
   * each with its position in @p handles, and marks them edited; unknown
   * handles are skipped. One signal for all, as replaceEntities() gives,
   * without a copy of each.
   */
  void changeEntities(const QVector<quint64>& handles, const std::function<void(DrawingEntity&, int)>& change);

  /** Drops everything and starts from a new database. */
  void clear();
  /** Takes over everything @p other holds, which is left empty; one reset for the views. */
  void takeContents(DrawingDocument& other);

  QString fileName() const { return m_fileName; }
  void setFileName(const QString& fileName) { m_fileName = fileName; }

Q_SIGNALS:
  /** Some entities changed their properties. */
  void entitiesChanged(const QVector<quint64>& handles);
  /** The whole drawing was replaced (opened, cleared). */
  void documentReset();

private:
  std::unique_ptr<OdDbDatabase> m_database;
  std::vector<DrawingEntity> m_entities;
  std::unordered_map<quint64, std::size_t> m_indexOfHandle;
  QVector<quint64> m_handles;
  std::map<QString, DrawingBlock> m_blocks;
  std::map<QString, DrawingTextStyle> m_textStyles;
  std::map<QString, double> m_headerReals;
  quint64 m_lastHandle = 0;
  QString m_fileName;
  DrawingSource m_source;
};
