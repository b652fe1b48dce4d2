#include "output/screens/QtPrinter.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

#include <utility>

namespace quillon {

namespace {

// The printouts were always set in "Courier" so that the columns of the
// value formats stand straight; the system's own fixed-pitch font does the
// same on every system, where Courier may be missing.
constexpr int kPointSize = 9;

}  // namespace

QtPrinter::QtPrinter(QString pdfPath) : pdfPath_(std::move(pdfPath)) {}

PrintOutcome QtPrinter::print(const std::string& title, const std::vector<std::string>& lines)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QString::fromStdString(title));
    if (!pdfPath_.isEmpty()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdfPath_);
    } else {
        QPrintDialog dialog(&printer, QApplication::activeWindow());
        dialog.setObjectName("dlgPrint");
        if (dialog.exec() != QDialog::Accepted)
            return PrintOutcome::Cancelled;
    }
    return printLinesOnPages(printer, lines) ? PrintOutcome::Printed : PrintOutcome::Failed;
}

bool printLinesOnPages(QPrinter& printer, const std::vector<std::string>& lines)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setFixedPitch(true);
    font.setStyleHint(QFont::TypeWriter);
    font.setPointSize(kPointSize);
    painter.setFont(font);
    const QFontMetrics metrics = painter.fontMetrics();
    const int lineHeight = metrics.lineSpacing();
    const int pageHeight = painter.viewport().height();
    int top = 0;
    for (const std::string& line : lines) {
        if (top + lineHeight > pageHeight && top > 0) {
            if (!printer.newPage())
                return false;
            top = 0;
        }
        painter.drawText(0, top + metrics.ascent(), QString::fromStdString(line));
        top += lineHeight;
    }
    return painter.end();
}

}  // namespace quillon
