// A large, realistic drawing made through the database API, for the DXF benchmarks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "db/database.h"

namespace korva::bench {

struct DrawingCounts {
  size_t entities = 0;  // model-space entities, an INSERT with its attributes counting once
  size_t records = 0;   // every record added to ENTITIES, ATTRIB and SEQEND included
  size_t lines = 0;
  size_t circles = 0;
  size_t arcs = 0;
  size_t polylines = 0;
  size_t texts = 0;
  size_t mtexts = 0;
  size_t inserts = 0;
  size_t attributes = 0;
};

struct MadeDrawing {
  std::unique_ptr<db::Database> database;
  DrawingCounts counts;
};

// About half LINE; the rest CIRCLE, ARC, LWPOLYLINE of 5 to 20 vertices, TEXT, MTEXT and
// INSERT of blocks with 2 to 4 attributes; spread over 50 layers. The same seed gives
// the same drawing.
MadeDrawing makeDrawing(size_t entityCount, uint64_t seed = 1);

}  // namespace korva::bench
