#pragma once

#include "OdArray.h"
#include "OdDbSymbolTableRecord.h"

/**
 * A linetype: its description and its dash pattern, in drawing units: a
 * positive length is a dash, a negative one a gap, zero a dot. An empty
 * pattern is a continuous line.
 */
class ODA_EXPORT OdDbLinetypeTableRecord : public OdDbSymbolTableRecord
{
public:
  OdDbLinetypeTableRecord(OdDbDatabase* database, const OdDbObjectId& id, const OdString& name);

  /** Null for a record of another kind. */
  static OdDbLinetypeTableRecord* cast(OdDbSymbolTableRecord* record);

  const OdString& comments() const { return m_comments; }
  void setComments(const OdString& comments) { m_comments = comments; }

  int numDashes() const { return int(m_dashes.size()); }
  /** The length of one dash; 0 for an index outside the pattern. */
  double dashLengthAt(int index) const;
  /** Lengths that are not finite are refused, and the pattern stays as it was. */
  bool setDashes(const OdDoubleArray& dashes);
  /** The length of one repetition of the pattern. */
  double patternLength() const;

private:
  OdString m_comments;
  OdDoubleArray m_dashes;
};
