// The play-and-record test is the device script's: it fetches a sound file
// from the station's FTP server, plays it, records and sends the recording
// back. The shell only hands it the seven words, none of them checked (the
// volume ranges are the script's to honour).
#include <array>

#include "audio/audio.h"
#include "common/quote.h"
#include "common/run.h"

namespace {
constexpr const char* kWarnScript = "/system/bin/audio_warn.sh";
}  // namespace

int audio_warn(const char* ftp_ip, const char* user, const char* password, const char* playback_file,
               const char* playback_volume, const char* capture_volume, const char* capture_file) {
    // Each word reaches the script as one argument, whatever it holds; an
    // empty word stays empty, so the script gets fewer arguments and the
    // following ones move forward.
    const ft::Quoted words[] = {ft::Quoted(ftp_ip),          ft::Quoted(user),           ft::Quoted(password),
                                ft::Quoted(playback_file),   ft::Quoted(playback_volume), ft::Quoted(capture_volume),
                                ft::Quoted(capture_file)};
    std::array<char, 512> line{};
    // A line that does not fit is not run: cut short, it could hand the
    // script other arguments than were typed.
    if (ft::format_command(line, "%s %s %s %s %s %s %s %s", kWarnScript, words[0].c_str(), words[1].c_str(),
                           words[2].c_str(), words[3].c_str(), words[4].c_str(), words[5].c_str(), words[6].c_str()))
        ft::run_command(line.data());
    return 1;
}
