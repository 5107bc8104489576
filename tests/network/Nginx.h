// nginx on port 80 of loopback, with a configuration and a folder of its own.
#pragma once

#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <thread>

#include "network/PlainPeer.h"
#include "support/OwnNetwork.h"
#include "support/Process.h"
#include "support/TempDir.h"

namespace OrlekTest {

class Nginx {
public:
    /// Where the program is; empty when it is not installed.
    static std::string program() {
        std::string path = shell("PATH=$PATH:/usr/sbin; command -v nginx || true");
        return path.substr(0, path.find('\n'));
    }

    Nginx() {
        for (int attempt = 0; attempt < 500; ++attempt) {
            try {
                PlainPeer::connectedTo(80);
                return;
            } catch (const std::runtime_error&) {
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
            }
        }
        throw std::runtime_error("nginx does not start: " + mProcess.output());
    }

    /// Puts a file where the server finds it.
    void serve(const std::string& name, const std::string& bytes) const {
        mDir.write("www/" + name, bytes);
    }

private:
    TempDir mDir;
    // One process, which keeps its user, ends with this one and has every path inside the folder.
    std::string mConfiguration =
        mDir.write("conf",
                   "daemon off; master_process off; user root; pid pid;\n"
                   "events {}\n"
                   "http { access_log off; client_body_temp_path temp; proxy_temp_path temp;\n"
                   "  fastcgi_temp_path temp; uwsgi_temp_path temp; scgi_temp_path temp;\n"
                   "  server { listen 127.0.0.1:80; root www;\n"
                   "    location /listing/ { autoindex on; } } }\n");
    std::string mIndex = mDir.write("www/index", "");
    Process mProcess{{"/usr/bin/setpriv", "--pdeathsig", "KILL", program(), "-p", mDir.path(), "-e",
                      "stderr", "-c", "conf"},
                     mDir.path("log")};
};

}  // namespace OrlekTest
