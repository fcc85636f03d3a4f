// A user in memory: answers questions from a list, records what was asked, and runs a test's
// code during yields.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/host.h"

namespace velmora::fake {

class FakeHost final : public Host {
  public:
    BoxAnswer MsgBox(const Box& box) override {
        boxes.push_back(box);
        if (onBox) onBox(box);
        if (answers.empty()) return cancellingAnswer(box.buttons);
        const BoxAnswer answer = answers.front();
        answers.pop_front();
        return answer;
    }
    SeriesAnswer MsgBoxOfSeries(const Box& box, const std::string& offer) override {
        offers.push_back(offer);
        const bool isForTheRest = takesOffer && takesOffer(box);
        return {.answer = MsgBox(box), .isForTheRest = isForTheRest};
    }
    void ShowBusy(bool isBusy) override {
        busy += isBusy ? 1 : -1;
        if (isBusy) ++timesBusy;
    }
    void ShowListing(const std::string& folder, std::size_t entries) override {
        listings.push_back(folder + ' ' + std::to_string(entries));
    }
    void Tell(const Box& box) override { told.push_back(box); }
    std::string BrowseForFolder(const std::string& title) override {
        dialogs.push_back(title);
        if (onDialog) onDialog(title);
        return nextPath();
    }
    std::string OpenFileDialog(const FileDialog& dialog) override {
        dialogs.push_back(dialog.DialogTitle + "|" + dialog.InitDir);
        fileDialogs.push_back(dialog);
        if (onDialog) onDialog(dialog.DialogTitle);
        return nextPath();
    }
    void Beep() override { ++beeps; }
    void Note(const std::string& text) override { notes.push_back(text); }
    void DoEvents() override {
        ++yields;
        if (onYield) onYield(yields);
    }
    bool DoEventsRan() override {
        DoEvents();
        return !saysThatNothingRan;
    }

    bool saysThatNothingRan = false;  ///< of the yields
    std::deque<BoxAnswer> answers;    ///< for the next boxes; the cancelling answer when used up
    std::deque<std::string> paths;    ///< for the next dialogs; empty when used up
    std::vector<Box> boxes;
    std::vector<std::string> listings;    ///< "folder entries" each time that one is said
    std::vector<Box> told;                ///< those that wait for nobody
    std::vector<std::string> dialogs;     ///< titles of the dialogs shown
    std::vector<FileDialog> fileDialogs;  ///< the file dialogs among them, whole
    std::vector<std::string> notes;
    std::vector<std::string> offers;  ///< to take an answer for the rest of a series
    /// Whether the user takes such an offer; without it none is taken.
    std::function<bool(const Box&)> takesOffer;
    int busy = 0;  ///< times that have begun and not ended
    int timesBusy = 0;
    int beeps = 0;
    int yields = 0;
    std::function<void(int)> onYield;  ///< gets the number of the yield, from 1
    std::function<void(const Box&)> onBox;
    std::function<void(const std::string& title)> onDialog;

  private:
    std::string nextPath() {
        if (paths.empty()) return {};
        std::string path = paths.front();
        paths.pop_front();
        return path;
    }
};

}  // namespace velmora::fake
