#pragma once

#include "DrawingEntity.h"
#include "OdDbDatabase.h"
#include <QObject>
#include <QString>
#include <QVector>
#include <functional>
#include <limits>
#include <map>
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
  /** Null when no entity has the handle. */
  const DrawingEntity* entity(quint64 handle) const;
  /** Adds at the end; a handle that is taken or not keepsHandle() is replaced by a new one. Returns the handle. */
  quint64 addEntity(DrawingEntity entity);
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

  /** Inserts nested deeper than this are a loop in the drawing, not a design, and are not drawn. */
  static constexpr int kMaxBlockDepth = 8;
  /**
   * How many entities drawing the model space takes: an insert counts as its
   * block's entities, nested as deep as they are drawn, and a multi-line text
   * as its lines. The count stops at
   * @p limit, as blocks that insert each other many times make it grow beyond any number.
   */
  quint64 drawnEntityCount(quint64 limit) const;

  /** Puts the given entities in place of those with the same handles; unknown handles are skipped. */
  void replaceEntities(const std::vector<DrawingEntity>& changed);
  /**
   * Changes the entities with @p handles where they are, @p change taking
   * each with its position in @p handles; unknown handles are skipped. One
   * signal for all, as replaceEntities() gives, without a copy of each.
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
  std::map<quint64, std::size_t> m_indexOfHandle;
  std::map<QString, DrawingBlock> m_blocks;
  std::map<QString, DrawingTextStyle> m_textStyles;
  std::map<QString, double> m_headerReals;
  quint64 m_lastHandle = 0;
  QString m_fileName;
};
