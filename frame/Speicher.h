// Speicher: the memory figures of the machine, read from the Linux kernel (/proc/meminfo),
// as the memory window shows them: load, physical, swap and virtual memory, total and free.
#pragma once

#include <cstdint>
#include <string>

namespace sw {

struct SpeicherStand {
    int32_t auslastung = 0;        // per cent of physical memory in use
    uint64_t physischGesamt = 0;   // bytes
    uint64_t physischFrei = 0;     // bytes available
    uint64_t auslagerungGesamt = 0;
    uint64_t auslagerungFrei = 0;
    uint64_t virtuellGesamt = 0;   // address space of the process (RLIMIT_AS or physical + swap)
    uint64_t virtuellFrei = 0;
};

SpeicherStand SpeicherLesen();
// Whole gigabytes as "n GB ", then the whole megabytes left as "m MB" ("15 GB 820 MB",
// "512 MB"); numbers through ZahlFormat.
std::string GroesseText(uint64_t bytes);

}  // namespace sw
