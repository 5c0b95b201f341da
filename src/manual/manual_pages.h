// The manual as a document: what help window and PDF share, and the writer of the PDF.
#pragma once

#include <QImage>
#include <QTextDocument>

#include "base/whole_file.h"
#include "manual/manual_text.h"

namespace kelvane {

// Puts Markdown into the document: pictures of the folder, at most `width` pixels wide, tables with lines. A
// picture that is not there is left out.
void setManualText(QTextDocument& document, const QString& markdown, const QString& pictureFolder,
                   double width);

// A4, with contents, page numbers and links that lead inside the file. Errors: the file cannot be written.
FileResult writeManualPdf(const ManualText& manual, const QString& pictureFolder, const QString& path);

// A report on A4 with page numbers; a picture, if it is not null, stands where the HTML says "trend".
FileResult writeHtmlPdf(const QString& html, const QImage& trend, const QString& path);

}  // namespace kelvane
