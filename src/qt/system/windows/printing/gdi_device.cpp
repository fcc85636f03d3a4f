#include "qt/system/windows/printing/gdi_device.h"

#include <algorithm>

namespace velmora::qt {

namespace {

constexpr int stripHeight = 128;

bool isWhite(const QImage& picture, int from, int to) {
    constexpr QRgb colours = 0x00FFFFFF;
    for (int y = from; y < to; ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        const bool isBlank = std::all_of(line, line + picture.width(),
                                         [](QRgb dot) { return (dot & colours) == colours; });
        if (!isBlank) return false;
    }
    return true;
}

// Also those of jobs, which the system has no words for.
QString wordsOf(DWORD error) {
    wchar_t text[512];
    const DWORD length = ::FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, error, 0, text, static_cast<DWORD>(std::size(text)), nullptr);
    QString words = QString::fromWCharArray(text, static_cast<int>(length)).trimmed();
    if (words.endsWith(QLatin1Char('.'))) words.chop(1);
    if (error != ERROR_SUCCESS && !words.isEmpty()) return words;
    return QStringLiteral("The printer reports an error");
}

}  // namespace

GdiDevice::GdiDevice(HDC context) : context_(context) {
    ::SetStretchBltMode(context_, COLORONCOLOR);
}

GdiDevice::~GdiDevice() {
    ::DeleteDC(context_);
}

bool GdiDevice::succeeded(bool did) {
    if (!did) error_ = ::GetLastError();
    return did;
}

Paper GdiDevice::paper() const {
    const auto ask = [this](int what) { return ::GetDeviceCaps(context_, what); };
    const QRect printable(ask(PHYSICALOFFSETX), ask(PHYSICALOFFSETY), ask(HORZRES), ask(VERTRES));
    // A context without paper is printable all over.
    const QSize size = QSize(ask(PHYSICALWIDTH), ask(PHYSICALHEIGHT)).expandedTo(printable.size());
    return {.size = size,
            .printable = printable,
            .dotsPerInch = QSizeF(std::max(1, ask(LOGPIXELSX)), std::max(1, ask(LOGPIXELSY)))};
}

bool GdiDevice::startDoc(const QString& title) {
    const std::wstring name = title.toStdWString();
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = name.c_str();
    ::SetLastError(ERROR_SUCCESS);
    return succeeded(::StartDocW(context_, &document) > 0);
}

bool GdiDevice::startPage() {
    ::SetLastError(ERROR_SUCCESS);
    return succeeded(::StartPage(context_) > 0);
}

bool GdiDevice::draw(const QImage& picture, const QRect& place) {
    const QImage dots = picture.convertToFormat(QImage::Format_RGB32);
    ::SetLastError(ERROR_SUCCESS);
    for (int from = 0; from < dots.height(); from += stripHeight) {
        const int to = std::min(from + stripHeight, dots.height());
        if (isWhite(dots, from, to)) continue;
        if (!drawStrip(dots, QRect(0, from, dots.width(), to - from), place)) return false;
    }
    return true;
}

// Edges of strips are rounded the same way on both sides, so that neither gaps nor overlaps appear.
bool GdiDevice::drawStrip(const QImage& picture, const QRect& strip, const QRect& place) {
    const auto edge = [&](int y) {
        return place.top() + ::MulDiv(y, place.height(), picture.height());
    };
    const int top = edge(strip.top());
    const int height = edge(strip.top() + strip.height()) - top;
    if (height == 0) return true;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = strip.width();
    info.bmiHeader.biHeight = -strip.height();  // from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    const int lines = ::StretchDIBits(
        context_, place.left(), top, place.width(), height, 0, 0, strip.width(), strip.height(),
        picture.constScanLine(strip.top()), &info, DIB_RGB_COLORS, SRCCOPY);
    return succeeded(lines != 0 && lines != static_cast<int>(GDI_ERROR));
}

bool GdiDevice::endPage() {
    ::SetLastError(ERROR_SUCCESS);
    return succeeded(::EndPage(context_) > 0);
}

bool GdiDevice::endDoc() {
    ::SetLastError(ERROR_SUCCESS);
    return succeeded(::EndDoc(context_) > 0);
}

void GdiDevice::abortDoc() {
    ::AbortDoc(context_);
}

PrintResult GdiDevice::failure() const {
    // The user has dismissed the question for a file, or has removed the job.
    if (error_ == ERROR_CANCELLED || error_ == ERROR_PRINT_CANCELLED) {
        return {.end = PrintEnd::cancelled};
    }
    return {.end = PrintEnd::failed, .reason = wordsOf(error_)};
}

}  // namespace velmora::qt
