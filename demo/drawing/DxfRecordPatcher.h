#pragma once

#include "DrawingEntity.h"
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

/** The names an entity's record gives: its layer and linetype (BYLAYER when it gives none). */
struct DxfRecordNames
{
  QString layer;
  QString linetype;
};

/**
 * Works an edit into the record an entity was read from: the groups of the
 * values that changed are replaced, every other group (subclass markers,
 * reactors, extended data, extrusion, codes it does not know) stays where it
 * was, and a group the edit needs and the record lacks is put where the
 * format places it. A number whose value did not change keeps its text.
 */
class DxfRecordPatcher
{
public:
  /**
   * The record is @p size bytes of @p bytes from @p begin; @p version is the
   * file's $ACADVER, which decides what the record can hold.
   */
  DxfRecordPatcher(const QByteArray& bytes, int begin, int size, const QByteArray& version);

  /** Makes the record say @p edited where it said @p original. */
  void apply(const DrawingEntity& original, const DxfRecordNames& originalNames, const DrawingEntity& edited,
             const DxfRecordNames& editedNames);
  QByteArray record() const;
  /** What of the edit the record cannot hold, each a short phrase ("lineweight", "vertex count"...). */
  const QStringList& unkept() const { return m_unkept; }

  /** Whether a file of @p version holds lineweights (2000 on) and true colours (2004 on). */
  static bool holdsLineWeights(const QByteArray& version) { return version >= "AC1015"; }
  static bool holdsTrueColors(const QByteArray& version) { return version >= "AC1018"; }

  /** A number as a save writes it: its shortest exact form, with a point. */
  static QByteArray numberText(double value);

private:
  struct Group
  {
    int code = 0;
    /** The group as the file has it, code and value lines; empty once changed. */
    QByteArray raw;
    /** The code line, without its end. */
    QByteArray codeLine;
    QByteArray value;
  };
  /**
   * The groups of one part of the record (the entity, or one vertex or
   * attribute) from @p first to the next group 0; found anew on each use, as
   * groups come and go.
   */
  struct Part
  {
    int first = 0;
  };

  Part part(int index) const;
  int partCount() const;
  /** Where the part's own groups end: before extended data. */
  int ownEnd(const Part& p) const;
  int find(const Part& p, int code, int occurrence = 0) const;
  void setText(const Part& p, int code, const QByteArray& value, std::initializer_list<int> after, int occurrence = 0);
  void setNumber(const Part& p, int code, double value, std::initializer_list<int> after, int occurrence = 0);
  void setInteger(const Part& p, int code, int value, std::initializer_list<int> after);
  void setPoint(const Part& p, int code, const DrawingPoint& was, const DrawingPoint& now,
                std::initializer_list<int> after, int occurrence = 0);
  void remove(const Part& p, int code);
  int insert(const Part& p, int code, const QByteArray& value, std::initializer_list<int> after);
  void insertAt(int index, int code, const QByteArray& value);
  void replace(int index, const QByteArray& value);

  void applyCommon(const Part& p, const DrawingEntity& original, const DxfRecordNames& originalNames,
                   const DrawingEntity& edited, const DxfRecordNames& editedNames);
  void applyText(const Part& p, const DrawingEntity& original, const DrawingEntity& edited, bool attribute);
  void applyMText(const Part& p, const DrawingEntity& original, const DrawingEntity& edited);
  void applyLightPolyline(const Part& p, const DrawingEntity& original, const DrawingEntity& edited);
  void applyPolyline(const DrawingEntity& original, const DrawingEntity& edited);
  void applySpline(const Part& p, const DrawingEntity& original, const DrawingEntity& edited);
  void applyHatch(const Part& p, const DrawingEntity& original, const DrawingEntity& edited);
  void applyDimension(const Part& p, const DrawingEntity& original, const DrawingEntity& edited);
  void applyAttributes(const DrawingEntity& original, const DrawingEntity& edited);

  std::vector<Group> m_groups;
  QByteArray m_version;
  QByteArray m_lineEnd;
  bool m_paddedCodes = true;
  QStringList m_unkept;
};
