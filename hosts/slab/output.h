#pragma once
// What the user gets to see: the report as a listing, results for machines, a summary for the
// terminal, and a picture.

#include "hosts/slab/model.h"
#include "hosts/slab/results.h"

#include <string>

namespace slab {

/// The report text, laid out with the library's listing lines.
std::string ReportText(const Model& model, const Results& results);

/// All results as a JSON document, numbers in the project's units.
std::string JsonText(const Model& model, const Results& results);

/// A dozen lines for the terminal: extremes with their places, balance, iteration, warnings.
std::string SummaryText(const Model& model, const Results& results);

/// A plan of the slab with shaded settlements and contour lines, as an SVG document.
std::string PictureText(const Model& model, const Results& results);

/// Writes a file whole or not at all: a temporary file beside it takes its place when complete. The
/// mode of a file that is there stays, and so do its links: through a symbolic link its target is
/// written, and a file with several names is written in place, which a full disk can cut short.
/// Throws std::runtime_error naming the file and the reason, or Cancelled while a pipe is waited
/// for.
void WriteWholeFile(const std::string& path, const std::string& text);

/// Writes to standard output. Throws std::runtime_error, or Cancelled while it waits for a reader.
void WriteStandardOutput(const std::string& text);

} // namespace slab
