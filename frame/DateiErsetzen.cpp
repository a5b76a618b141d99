#include "frame/DateiErsetzen.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

namespace sw {

bool DateiErsetzen(const std::string& pfad, std::string_view inhalt) {
    std::string muster = pfad + ".XXXXXX";
    const int fd = ::mkstemp(muster.data());
    if (fd < 0) return false;
    struct stat alt {};
    mode_t modus;
    if (::stat(pfad.c_str(), &alt) == 0) {
        modus = alt.st_mode & 07777;
    } else {
        const mode_t maske = ::umask(0);
        ::umask(maske);
        modus = 0666 & ~maske;
    }
    bool gut = ::fchmod(fd, modus) == 0;
    size_t geschrieben = 0;
    while (gut && geschrieben < inhalt.size()) {
        const ssize_t n = ::write(fd, inhalt.data() + geschrieben, inhalt.size() - geschrieben);
        if (n < 0 && errno == EINTR) continue;
        gut = n > 0;
        if (gut) geschrieben += size_t(n);
    }
    gut = gut && ::fsync(fd) == 0;
    gut = (::close(fd) == 0) && gut;
    if (!gut || std::rename(muster.c_str(), pfad.c_str()) != 0) {
        const int fehler = errno;
        ::unlink(muster.c_str());
        errno = fehler;
        return false;
    }
    const std::string ordner = std::filesystem::path(pfad).parent_path().string();
    const int dfd = ::open(ordner.empty() ? "." : ordner.c_str(), O_RDONLY | O_DIRECTORY);
    if (dfd >= 0) {
        ::fsync(dfd);
        ::close(dfd);
    }
    return true;
}

}  // namespace sw
