#pragma once
// The FTP server of the test network, as the phone runs it: a packaged
// server inside the phone's own network, on a port the phone's root may bind
// (it keeps no capability, so not 21). The kernel shim sends the phone's
// connections to port 21 of any 127/8 address on to it.
namespace ftsim::ftp {

constexpr int kClientPort = 21;
constexpr int kServerPort = 2121;
// The host's STATE/ftp, where the server keeps its files.
constexpr const char* kStateFolder = "ftp";
constexpr const char* kRoot = "/srv/ftp";
// Written by the server once it listens; /tmp is new at each power-up.
constexpr const char* kReadyFile = "/tmp/ftp-server.ready";
constexpr const char* kProgram = "/system/bin/ftp-server";

}  // namespace ftsim::ftp
