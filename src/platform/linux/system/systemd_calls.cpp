#include "platform/linux/system/systemd_calls.h"

#include <mutex>

#include "platform/linux/system/loaded_library.h"

namespace velmora::linuxhost {

namespace {

void findOthers(LoadedLibrary& library, SystemdCalls& calls) {
    library.find("sd_notify", calls.notify);
    library.find("sd_watchdog_enabled", calls.watchdogEnabled);
    library.find("sd_get_sessions", calls.getSessions);
    library.find("sd_session_get_class", calls.sessionGetClass);
    library.find("sd_session_get_tty", calls.sessionGetTty);
    library.find("sd_session_get_uid", calls.sessionGetUid);
}

void findJournal(LoadedLibrary& library, SystemdCalls& calls) {
    library.find("sd_journal_open", calls.journalOpen);
    library.find("sd_journal_open_files", calls.journalOpenFiles);
    library.find("sd_journal_close", calls.journalClose);
    library.find("sd_journal_set_data_threshold", calls.journalSetDataThreshold);
    library.find("sd_journal_seek_tail", calls.journalSeekTail);
    library.find("sd_journal_previous", calls.journalPrevious);
    library.find("sd_journal_get_data", calls.journalGetData);
    library.find("sd_journal_get_cursor", calls.journalGetCursor);
    library.find("sd_journal_get_realtime_usec", calls.journalGetRealtimeUsec);
}

void findBus(LoadedLibrary& library, SystemdCalls& calls) {
    library.find("sd_bus_open_system", calls.busOpenSystem);
    library.find("sd_bus_close_unref", calls.busCloseUnref);
    library.find("sd_bus_is_ready", calls.busIsReady);
    library.find("sd_bus_process", calls.busProcess);
    library.find("sd_bus_wait", calls.busWait);
    library.find("sd_bus_set_method_call_timeout", calls.busSetMethodCallTimeout);
    library.find("sd_bus_call", calls.busCall);
    library.find("sd_bus_get_property_string", calls.busGetPropertyString);
    library.find("sd_bus_get_property_trivial", calls.busGetPropertyTrivial);
    library.find("sd_bus_message_new_method_call", calls.busMessageNewMethodCall);
    library.find("sd_bus_message_append", calls.busMessageAppend);
    library.find("sd_bus_message_enter_container", calls.busMessageEnterContainer);
    library.find("sd_bus_message_read", calls.busMessageRead);
    library.find("sd_bus_message_unref", calls.busMessageUnref);
}

SystemdCalls systemdFunctions{};

}  // namespace

bool loadSystemd() {
    static std::mutex mutex;
    static bool isLoaded = false;
    const std::lock_guard lock(mutex);
    if (!isLoaded) {
        LoadedLibrary library(VELMORA_SYSTEMD_LIBRARY);
        findOthers(library, systemdFunctions);
        findJournal(library, systemdFunctions);
        findBus(library, systemdFunctions);
        isLoaded = library.isWhole();
    }
    return isLoaded;
}

const SystemdCalls& systemd() {
    return systemdFunctions;
}

}  // namespace velmora::linuxhost
