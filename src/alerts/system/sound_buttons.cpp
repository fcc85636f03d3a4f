#include "alerts/system/sound_buttons.h"

#include "base/resume_next.h"
#include "base/text.h"

namespace velmora {

SoundButtons::SoundButtons(Form1& form1, Platform& platform, Host& host, SystemActions& actions)
    : form1_(form1), platform_(platform), host_(host), actions_(actions) {
    for (std::size_t i = 0; i < form1_.txtAudio.size(); ++i) {
        form1_.cmdPlay[i].Click.connect([this, i] { cmdPlay_Click(i); });
        form1_.cmdAudio[i].Click.connect([this, i] { cmdAudio_Click(i); });
    }
    form1_.cmdSnd.Click.connect([this] { cmdSnd_Click(); });
}

void SoundButtons::setDefaults() {
    // A system that doesn't know its own folder must not keep the program from starting.
    resumeNext([this] {
        const std::string folder = platform_.kernel32.GetWindowsDirectoryA();
        if (folder.empty()) return;
        const std::string chime = folder + "\\media\\chimes.wav";
        for (TextBox& sound : form1_.txtAudio) {
            if (sound.empty()) sound.setText(chime);
        }
    });
}

// Blanks around the path are no part of it, neither when it is looked for nor when it is played.
void SoundButtons::cmdPlay_Click(std::size_t index) {
    const std::string& text = form1_.txtAudio[index].Text();
    const std::string file = trim(text);
    if (platform_.fso.FileExists(file)) {
        actions_.prcPlaySound(file, sound::noDefault);
    } else {
        sayMissing(text);
    }
}

void SoundButtons::cmdAudio_Click(std::size_t index) {
    const std::string file = host_.OpenFileDialog({.Filter = "wav (*.wav)|*.wav;|*.*|*.*"});
    if (file.empty()) return;
    if (platform_.fso.FileExists(file)) {
        form1_.txtAudio[index].setText(file);
    } else {
        sayMissing(file);
    }
}

void SoundButtons::cmdSnd_Click() {
    actions_.prcPlaySound(platform_.app.Path + "\\sound\\alert.WAV", sound::noDefault);
}

void SoundButtons::sayMissing(const std::string& file) {
    host_.MsgBox({.text = "File Does not exists: " + file});
}

}  // namespace velmora
