// The functions of libsystemd that are called here.
#pragma once

#include <systemd/sd-bus.h>
#include <systemd/sd-daemon.h>
#include <systemd/sd-journal.h>
#include <systemd/sd-login.h>

namespace velmora::linuxhost {

/// Each has the name and the manner of the library's function without "sd_".
struct SystemdCalls {
    decltype(&sd_notify) notify;
    decltype(&sd_watchdog_enabled) watchdogEnabled;

    decltype(&sd_get_sessions) getSessions;
    decltype(&sd_session_get_class) sessionGetClass;
    decltype(&sd_session_get_tty) sessionGetTty;
    decltype(&sd_session_get_uid) sessionGetUid;

    decltype(&sd_journal_open) journalOpen;
    decltype(&sd_journal_open_files) journalOpenFiles;
    decltype(&sd_journal_close) journalClose;
    decltype(&sd_journal_set_data_threshold) journalSetDataThreshold;
    decltype(&sd_journal_seek_tail) journalSeekTail;
    decltype(&sd_journal_previous) journalPrevious;
    decltype(&sd_journal_get_data) journalGetData;
    decltype(&sd_journal_get_cursor) journalGetCursor;
    decltype(&sd_journal_get_realtime_usec) journalGetRealtimeUsec;

    decltype(&sd_bus_open_system) busOpenSystem;
    decltype(&sd_bus_close_unref) busCloseUnref;
    decltype(&sd_bus_is_ready) busIsReady;
    decltype(&sd_bus_process) busProcess;
    decltype(&sd_bus_wait) busWait;
    decltype(&sd_bus_set_method_call_timeout) busSetMethodCallTimeout;
    decltype(&sd_bus_call) busCall;
    decltype(&sd_bus_get_property_string) busGetPropertyString;
    decltype(&sd_bus_get_property_trivial) busGetPropertyTrivial;
    decltype(&sd_bus_message_new_method_call) busMessageNewMethodCall;
    decltype(&sd_bus_message_append) busMessageAppend;
    decltype(&sd_bus_message_enter_container) busMessageEnterContainer;
    decltype(&sd_bus_message_read) busMessageRead;
    decltype(&sd_bus_message_unref) busMessageUnref;
};

/// Loads the library with the first call. False when that fails; the next call tries again.
bool loadSystemd();
/// The functions, once the library is loaded.
const SystemdCalls& systemd();

}  // namespace velmora::linuxhost
