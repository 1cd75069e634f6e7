// nivalis-assetgen: writes every generated model and texture into a resources directory.
//
//   nivalis-assetgen --out <resources directory>
//
// Deterministic: the same generator writes the same bytes on every run. Files whose content is
// unchanged are left untouched.

#include <chrono>
#include <cstdio>
#include <exception>
#include <string>

#include "tools/assetgen/catalogue/Generator.h"
#include "tools/assetgen/io/OutputTree.h"

int main(int argc, char** argv) {
    std::string outDir;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--out" && i + 1 < argc) {
            outDir = argv[++i];
        } else if (arg == "--help" || arg == "-h") {
            std::puts("Usage: nivalis-assetgen --out <resources directory>");
            return 0;
        } else {
            std::fprintf(stderr, "nivalis-assetgen: unknown argument %s\n", arg.c_str());
            return 2;
        }
    }
    if (outDir.empty()) {
        std::fputs("nivalis-assetgen: --out <resources directory> is required\n", stderr);
        return 2;
    }
    try {
        const auto start = std::chrono::steady_clock::now();
        tools::assetgen::io::OutputTree out(outDir);
        tools::assetgen::catalogue::Generator::writeAll(out);
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        std::printf("nivalis-assetgen: %zu files, %.2f MB in %.1f s\n", out.written().size(),
                    static_cast<double>(out.totalBytes()) / (1024.0 * 1024.0), seconds);
        return 0;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "nivalis-assetgen: %s\n", e.what());
        return 1;
    }
}
