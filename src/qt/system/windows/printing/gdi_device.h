// A device context as one that takes pages.
#pragma once

#include <windows.h>

#include "qt/system/print_job.h"

namespace velmora::qt {

class GdiDevice final : public PageDevice {
  public:
    /// Deletes the context at its end.
    explicit GdiDevice(HDC context);
    ~GdiDevice() override;
    GdiDevice(const GdiDevice&) = delete;
    GdiDevice& operator=(const GdiDevice&) = delete;

    Paper paper() const override;
    bool startDoc(const QString& title) override;
    bool startPage() override;
    /// In strips: those that are white all over need not be sent.
    bool draw(const QImage& picture, const QRect& place) override;
    bool endPage() override;
    bool endDoc() override;
    void abortDoc() override;
    PrintResult failure() const override;

  private:
    bool drawStrip(const QImage& picture, const QRect& strip, const QRect& place);
    /// Keeps the error of a call that has failed.
    bool succeeded(bool did);

    HDC context_;
    DWORD error_ = ERROR_SUCCESS;
};

}  // namespace velmora::qt
