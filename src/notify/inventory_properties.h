// The properties that each report asks for, in the order of its lines.
#pragma once

#include <array>

namespace velmora::inventory_properties {

/// The label of a line is the property's name, a colon and a blank.
inline constexpr std::array event{
    "Category",        "CategoryString",   "ComputerName", "Data",    "EventCode",
    "EventIdentifier", "InsertionStrings", "Logfile",      "Message", "RecordNumber",
    "SourceName",      "TimeGenerated",    "TimeWritten",  "Type",    "User"};

inline constexpr std::array memory{"CacheBytes",
                                   "CacheBytesPeak",
                                   "CacheFaultsPersec",
                                   "CommitLimit",
                                   "CommittedBytes",
                                   "SystemCacheResidentBytes",
                                   "SystemCodeResidentBytes",
                                   "SystemCodeTotalBytes",
                                   "SystemDriverResidentBytes",
                                   "SystemDriverTotalBytes",
                                   "WriteCopiesPersec"};

inline constexpr std::array process{"Caption",
                                    "CreationClassName",
                                    "CreationDate",
                                    "CSCreationClassName",
                                    "CSName",
                                    "Description",
                                    "ExecutablePath",
                                    "ExecutionState",
                                    "Handle",
                                    "HandleCount",
                                    "InstallDate",
                                    "KernelModeTime",
                                    "MaximumWorkingSetSize",
                                    "MinimumWorkingSetSize",
                                    "Name",
                                    "OSCreationClassName",
                                    "OSName",
                                    "OtherOperationCount",
                                    "OtherTransferCount",
                                    "PageFaults",
                                    "PageFileUsage",
                                    "ParentProcessId",
                                    "PeakPageFileUsage",
                                    "PeakVirtualSize",
                                    "PeakWorkingSetSize",
                                    "Priority",
                                    "PrivatePageCount",
                                    "ProcessId",
                                    "QuotaNonPagedPoolUsage",
                                    "QuotaPagedPoolUsage",
                                    "QuotaPeakNonPagedPoolUsage",
                                    "QuotaPeakPagedPoolUsage",
                                    "ReadOperationCount",
                                    "ReadTransferCount",
                                    "SessionId",
                                    "Status",
                                    "TerminationDate",
                                    "ThreadCount",
                                    "UserModeTime",
                                    "VirtualSize",
                                    "WindowsVersion",
                                    "WorkingSetSize",
                                    "WriteOperationCount",
                                    "WriteTransferCount"};

inline constexpr std::array job{
    "Caption",     "Command",       "DaysOfMonth",   "DaysOfWeek",
    "Description", "ElapsedTime",   "InstallDate",   "InteractWithDesktop",
    "JobId",       "JobStatus",     "Name",          "Notify",
    "Owner",       "Priority",      "RunRepeatedly", "StartTime",
    "Status",      "TimeSubmitted", "UntilTime"};

/// What a line on a login is made of.
inline constexpr std::array account{"SIDType", "Domain", "Name"};

}  // namespace velmora::inventory_properties
