// nginx on port 80 of loopback, with a configuration and a folder of its own.
#pragma once

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <thread>

#include "network/PlainPeer.h"
#include "support/OwnNetwork.h"
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
        mDir.write("www/index", "");
        // One process, which keeps its user, and every path inside the folder.
        mDir.write("conf",
                   "daemon off; master_process off; user root; pid pid; error_log log;\n"
                   "events {}\n"
                   "http { access_log off; client_body_temp_path temp; proxy_temp_path temp;\n"
                   "  fastcgi_temp_path temp; uwsgi_temp_path temp; scgi_temp_path temp;\n"
                   "  server { listen 127.0.0.1:80; root www;\n"
                   "    location /listing/ { autoindex on; } } }\n");
        const std::string path = program(), log = mDir.path("log"), folder = mDir.path();
        mProcess = fork();
        if (mProcess == 0) {
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            execl(path.c_str(), path.c_str(), "-p", folder.c_str(), "-e", log.c_str(), "-c", "conf",
                  nullptr);
            _exit(127);
        }
        awaitAnswer();
    }
    Nginx(const Nginx&) = delete;
    Nginx& operator=(const Nginx&) = delete;
    ~Nginx() {
        kill(mProcess, SIGTERM);
        waitpid(mProcess, nullptr, 0);
    }

    /// Puts a file where the server finds it.
    void serve(const std::string& name, const std::string& bytes) const {
        mDir.write("www/" + name, bytes);
    }

private:
    void awaitAnswer() const {
        for (int attempt = 0; attempt < 500; ++attempt) {
            try {
                PlainPeer::connectedTo(80);
                return;
            } catch (const std::runtime_error&) {
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
            }
        }
        std::fprintf(stderr, "%s", shell("cat " + mDir.path("log")).c_str());
        kill(mProcess, SIGKILL);
        throw std::runtime_error("nginx does not start");
    }

    TempDir mDir;
    pid_t mProcess = -1;
};

}  // namespace OrlekTest
