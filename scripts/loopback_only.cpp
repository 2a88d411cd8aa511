// Preloaded by run.sh when the window is served by VNC. Qt's VNC platform listens on every network interface and asks
// for no password; this turns the address "any" of a bind into the loopback address, so that only this machine,
// and whoever has an ssh login on it, reaches the window. docs/decisions/0004-vnc-on-loopback.md
#include <arpa/inet.h>
#include <cstring>
#include <dlfcn.h>
#include <netinet/in.h>
#include <sys/socket.h>

extern "C" int bind(int socket, const sockaddr* address, socklen_t length) noexcept
{
    using Bind = int (*)(int, const sockaddr*, socklen_t);
    static const auto systemBind = reinterpret_cast<Bind>(dlsym(RTLD_NEXT, "bind"));

    if (address != nullptr && address->sa_family == AF_INET && length >= sizeof(sockaddr_in)) {
        sockaddr_in v4;
        std::memcpy(&v4, address, sizeof v4);
        if (v4.sin_addr.s_addr == htonl(INADDR_ANY)) {
            v4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
            return systemBind(socket, reinterpret_cast<const sockaddr*>(&v4), sizeof v4);
        }
    } else if (address != nullptr && address->sa_family == AF_INET6 && length >= sizeof(sockaddr_in6)) {
        sockaddr_in6 v6;
        std::memcpy(&v6, address, sizeof v6);
        if (IN6_IS_ADDR_UNSPECIFIED(&v6.sin6_addr)) {
            // Viewers are told 127.0.0.1, which a socket for both families knows as ::ffff:127.0.0.1.
            inet_pton(AF_INET6, "::ffff:127.0.0.1", &v6.sin6_addr);
            return systemBind(socket, reinterpret_cast<const sockaddr*>(&v6), sizeof v6);
        }
    }
    return systemBind(socket, address, length);
}
