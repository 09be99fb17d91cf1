#include "ui/diagram_export.h"

#include <QByteArray>
#include <QSaveFile>

#include <array>

namespace orvane {
namespace {

constexpr int kFileHeaderBytes = 14;
constexpr int kInfoHeaderBytes = 40;
constexpr int kBitsPerPixel = 24;
// 72 pixels an inch in pixels a metre, as the header counts them.
constexpr std::uint32_t kPixelsPerMetre = 2835;

void Put16(char*& at, std::uint16_t v) {
    *at++ = static_cast<char>(v & 0xFF);
    *at++ = static_cast<char>(v >> 8);
}

void Put32(char*& at, std::uint32_t v) {
    for (int k = 0; k < 4; ++k) *at++ = static_cast<char>((v >> (8 * k)) & 0xFF);
}

}  // namespace

bool writeBmp(QIODevice& device, const QImage& source) {
    if (source.isNull()) return false;
    const QImage image = source.convertToFormat(QImage::Format_RGB32);
    if (image.isNull()) return false;
    const auto width = static_cast<std::uint32_t>(image.width());
    const auto height = static_cast<std::uint32_t>(image.height());
    const std::uint32_t rowBytes = (width * 3 + 3) & ~3u;
    const std::uint32_t bitsBytes = rowBytes * height;
    const std::uint32_t offset = kFileHeaderBytes + kInfoHeaderBytes;

    std::array<char, kFileHeaderBytes + kInfoHeaderBytes> header{};
    char* at = header.data();
    *at++ = 'B';
    *at++ = 'M';
    Put32(at, offset + bitsBytes);
    Put16(at, 0);
    Put16(at, 0);
    Put32(at, offset);
    Put32(at, kInfoHeaderBytes);
    Put32(at, width);
    Put32(at, height);  // positive: the rows go bottom up
    Put16(at, 1);
    Put16(at, kBitsPerPixel);
    Put32(at, 0);  // BI_RGB, no compression
    Put32(at, bitsBytes);
    Put32(at, kPixelsPerMetre);
    Put32(at, kPixelsPerMetre);
    Put32(at, 0);
    Put32(at, 0);
    if (device.write(header.data(), header.size()) != static_cast<qint64>(header.size())) return false;

    QByteArray row(static_cast<qsizetype>(rowBytes), '\0');
    for (int y = image.height() - 1; y >= 0; --y) {
        const auto* pixels = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        char* out = row.data();
        for (int x = 0; x < image.width(); ++x) {
            *out++ = static_cast<char>(qBlue(pixels[x]));
            *out++ = static_cast<char>(qGreen(pixels[x]));
            *out++ = static_cast<char>(qRed(pixels[x]));
        }
        if (device.write(row) != row.size()) return false;
    }
    return true;
}

ExportStatus exportImage(const ImageExport& target, DiagramScene scene, const DiagramLabels& labels,
                         QSize clientSize) {
    if (target.size.width() <= 0 || target.size.height() <= 0) return ExportStatus::NoMemory;
    QImage image(target.size, QImage::Format_RGB32);
    if (image.isNull()) return ExportStatus::NoMemory;
    scene.camera = CameraForPicture(scene.camera, clientSize.width(), clientSize.height(), target.size.width(),
                                    target.size.height());
    scene.background = target.background;
    paintScene(image, scene, labels, DiagramSurface::Picture);

    QSaveFile file(target.path);
    if (!file.open(QIODevice::WriteOnly)) return ExportStatus::WriteFailed;
    const bool written = target.type == ImageFileType::Bmp ? writeBmp(file, image) : image.save(&file, "PNG");
    if (!written) {
        file.cancelWriting();
        return ExportStatus::WriteFailed;
    }
    return file.commit() ? ExportStatus::Ok : ExportStatus::WriteFailed;
}

}  // namespace orvane
