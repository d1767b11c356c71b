#pragma once

#include "DrawingEntity.h"
#include "DxfGroupScanner.h"
#include <string_view>
#include <vector>

/** What a record names rather than holds: the reader looks the names up in the drawing's tables. */
struct DxfEntityNames
{
  std::string_view layer = "0";
  std::string_view linetype = "BYLAYER";
  /** Image: the handle of its IMAGEDEF object, which names the file. */
  std::string_view imageDefinition;
};

/**
 * Makes an entity of one entity record of a DXF file: its common groups and
 * its kind's geometry. A record is the entity's groups from its group 0 up
 * to the next entity's; a polyline's VERTEX and SEQEND records, an insert's
 * ATTRIB and SEQEND records, are part of its record. A kind the model does
 * not know is kind Other. Reading a record twice gives the same entity, which
 * is how a save learns what an edit changed.
 */
class DxfEntityDecoder
{
public:
  void decode(const std::vector<DxfGroup>& record, DrawingEntity& entity, DxfEntityNames& names) const;

  /** How a dimension type's points (DrawingEntity::points) are coded in its record: group codes of their X. */
  static std::vector<int> dimensionPointCodes(int dimensionType);
  /** The codes of the X of the four corners of a solid or a trace, in file order. */
  static constexpr int kCornerCodes[4] = {10, 11, 12, 13};

  /** A handle as the file writes it (hex), or 0. */
  static quint64 handleOf(std::string_view text);
  /** A colour as groups 62 and 420 give it (either may be missing: -1). */
  static OdCmColor colorOf(int index, int trueColor);
};
