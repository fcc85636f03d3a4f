#include "shell/window_places.h"

#include <sstream>
#include <utility>

#include "forms/form_numbers.h"

namespace velmora {

namespace {

constexpr const char* fileName = "windows";

// The words behind the size in a line.
constexpr const char* cornerWord = "at";  // before the upper left corner
constexpr const char* maximised = "maximised";
constexpr const char* compact = "compact";

// No screen is as large: a greater figure is none of ours.
constexpr int greatest = 1'000'000;

bool isMeasure(int twips, int least) {
    return twips >= least && twips <= greatest;
}

}  // namespace

WindowPlaces::WindowPlaces(Forms& forms, UserState& state)
    : forms_(forms), state_(state), windows_(keptWindows(forms)) {
    kept_ = state_.read(fileName).value_or("");
    places_ = placesIn(kept_);
    for (Form* form : windows_) form->Load.connect([this, form] { give(*form); });
}

// The others are small, or come where the program has them.
std::vector<Form*> WindowPlaces::keptWindows(Forms& forms) {
    return {&forms.form1, &forms.frmHistory, &forms.dlgDriveInfo, &forms.frmNotify};
}

// A line each: "Form1 8070 9100 at 1500 900 maximised compact", name and size with what is so.
// Lines that can't be read count for nothing.
std::map<std::string, WindowPlaces::Place> WindowPlaces::placesIn(const std::string& text) {
    std::map<std::string, Place> places;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string name;
        Place place;
        fields >> name >> place.width >> place.height;
        bool isSound = fields && isMeasure(place.width, 0) && isMeasure(place.height, 0);
        for (std::string word; isSound && fields >> word;) {
            if (word == maximised) place.isMaximised = true;
            if (word == compact) place.isCompact = true;
            if (word != cornerWord) continue;
            Corner corner;
            fields >> corner.left >> corner.top;
            isSound =
                fields && isMeasure(corner.left, -greatest) && isMeasure(corner.top, -greatest);
            place.corner = corner;
        }
        if (isSound) places[name] = place;
    }
    return places;
}

std::string WindowPlaces::textOfPlaces() const {
    std::ostringstream text;
    for (const auto& [name, place] : places_) {
        text << name << ' ' << place.width << ' ' << place.height;
        if (place.corner)
            text << ' ' << cornerWord << ' ' << place.corner->left << ' ' << place.corner->top;
        if (place.isMaximised) text << ' ' << maximised;
        if (place.isCompact) text << ' ' << compact;
        text << '\n';
    }
    return text.str();
}

void WindowPlaces::give(Form& form) {
    const auto found = places_.find(form.Name());
    if (found == places_.end()) return;
    const Place& place = found->second;
    if (place.corner) form.moveTo(place.corner->left, place.corner->top);
    giveSize(form, place);
}

// A window as large as its content has no size to keep.
void WindowPlaces::giveSize(Form& form, const Place& place) {
    if (place.width > 0 && place.height > 0) form.setSize(place.width, place.height);
}

void WindowPlaces::afterStart() {
    Form1& form1 = forms_.form1;
    const auto found = places_.find(form1.Name());
    if (found == places_.end()) return;
    const Place place = found->second;
    // From its full height the view's button makes it compact.
    if (place.isCompact) form1.Toolbar1.userClickPart(tool::view);
    giveSize(form1, place);
    if (place.isMaximised) form1.setState(WindowState::maximised);
}

void WindowPlaces::note(const Form& form) {
    Place place;
    place.width = form.NormalWidth();
    place.height = form.NormalHeight();
    if (form.isPlaced()) place.corner = {form.Left(), form.Top()};
    place.isMaximised = form.State() == WindowState::maximised;
    place.isCompact = &form == &forms_.form1 && !forms_.form1.Frame1.Visible();
    places_[form.Name()] = place;
}

void WindowPlaces::keep() {
    for (const Form* form : windows_) {
        if (form->Visible() || form->isPlaced()) note(*form);
    }
    std::string text = textOfPlaces();
    if (text != kept_ && state_.write(fileName, text)) kept_ = std::move(text);
}

}  // namespace velmora
