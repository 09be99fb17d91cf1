#pragma once
// Saving the orbit diagram as a picture: the scene painted afresh at the size and
// background of the "Image properties..." page, written as an uncompressed Windows
// bitmap or as PNG. The file is written under a temporary name, synced and renamed,
// so a failure leaves an older file of that name as it was.
#include <QIODevice>
#include <QImage>
#include <QSize>
#include <QString>

#include <cstdint>

#include "ui/diagram_painter.h"

namespace orvane {

enum class ImageFileType { Bmp, Png };

enum class ExportStatus {
    Ok,
    NoMemory,     // the picture could not be made at that size
    WriteFailed,  // the file could not be created or written
};

struct ImageExport {
    QString path;
    ImageFileType type = ImageFileType::Bmp;
    QSize size{800, 600};             // pictureWidth x pictureHeight
    std::uint32_t background = 0xFFFFFF;  // diagramBackground, RGB
};

// Paints `scene` as a picture of the export's size and background, the Sun kept at
// its offset from the middle of the window's client area, and writes the file.
// Anything but Ok is for the window to report ("Save Image Error..." in a box
// titled "Error!"); the run goes on either way.
ExportStatus exportImage(const ImageExport& target, DiagramScene scene, const DiagramLabels& labels,
                         QSize clientSize);

// The image as a Windows bitmap: "BM", the 40-byte information header, and the
// rows bottom up, 24 bits a pixel in blue, green, red, each padded to 4 bytes; no
// compression, 72 pixels an inch.
bool writeBmp(QIODevice& device, const QImage& image);

}  // namespace orvane
