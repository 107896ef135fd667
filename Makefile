# Everything a newcomer needs on a fresh Debian 12 machine: `make run` and `make test`.
BUILD      ?= build
ASAN_BUILD ?= build-asan
FUZZ_BUILD ?= build-fuzz
# Release with the default options, as a distribution or a host builds it; the benchmarks run there.
RELEASE_BUILD ?= build-release
JOBS       ?= $(shell nproc)
CMAKE_ARGS ?=
# Our own builds treat warnings as errors; the project's default (a distribution's, a host's) does not.
WERROR     ?= -DZRSIMPRP_WARNINGS_AS_ERRORS=ON
# ccache where it is installed: the release check and the sanitizer build share little else.
LAUNCHER   ?= $(if $(shell command -v ccache 2>/dev/null),-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
# Paths below the checkout's parent folder are hashed relative to the build folder, so that two
# clones of the repository (a worktree, a fresh clone for CI) share what ccache has compiled.
export CCACHE_BASEDIR ?= $(abspath $(CURDIR)/..)
export CCACHE_NOHASHDIR ?= 1
SCREENSHOTS ?= $(CURDIR)/out/screenshots

.PHONY: all deps configure build run test test-sanitize fuzz-smoke release-check bench package clean \
        format format-check

all: build

deps:
	@bash scripts/install-deps.sh

$(BUILD)/build.ninja:
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo $(WERROR) $(LAUNCHER) $(CMAKE_ARGS)

configure: deps $(BUILD)/build.ninja

build: configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	@bash scripts/run-editor.sh $(BUILD) $(SCREENSHOTS)

# Every test, the Debian package's (label "package") and the documentation's (label "docs") too.
# Warnings are errors here even in a build directory configured without.
test: configure
	cmake -S . -B $(BUILD) $(WERROR) >/dev/null
	cmake --build $(BUILD) -j $(JOBS)
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

# The whole suite with AddressSanitizer and UndefinedBehaviorSanitizer; any report fails the run.
test-sanitize: deps
	CC=clang-14 CXX=clang++-14 cmake -S . -B $(ASAN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug \
	  -DZRSIMPRP_SANITIZE=address,undefined -DZRSIMPRP_BUILD_BENCH=OFF $(WERROR) $(LAUNCHER) $(CMAKE_ARGS)
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	cd $(ASAN_BUILD) && QT_QPA_PLATFORM=offscreen \
	  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/scripts/lsan.supp:print_suppressions=0 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --output-on-failure -j $(JOBS)

# Every libFuzzer target for FUZZ_SECONDS (default 60) each.
fuzz-smoke: deps
	CC=clang-14 CXX=clang++-14 cmake -S . -B $(FUZZ_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DZRSIMPRP_BUILD_FUZZ=ON -DZRSIMPRP_BUILD_WIDGETS=OFF -DZRSIMPRP_BUILD_TESTS=OFF -DZRSIMPRP_BUILD_BENCH=OFF \
	  $(WERROR) $(LAUNCHER)
	cmake --build $(FUZZ_BUILD) -j $(JOBS)
	bash scripts/fuzz-smoke.sh $(FUZZ_BUILD) $${FUZZ_SECONDS:-60}

# Release with default options only (no -Werror, nothing else): everything must build as a packager
# builds it; the tests run there too, but not the slow package and documentation builds, which
# `make test` runs.
$(RELEASE_BUILD)/build.ninja:
	cmake -S . -B $(RELEASE_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Release $(LAUNCHER)

release-check: deps $(RELEASE_BUILD)/build.ninja
	cmake --build $(RELEASE_BUILD) -j $(JOBS)
	cd $(RELEASE_BUILD) && ctest --output-on-failure -j $(JOBS) -LE 'package|docs'

# Every benchmark on the Release build, then the README's speed table from that run.
bench: deps $(RELEASE_BUILD)/build.ninja
	cmake --build $(RELEASE_BUILD) -j $(JOBS)
	bash scripts/run-bench.sh $(RELEASE_BUILD)

# The Debian package, from the Release build as a distribution would make it.
package: deps $(RELEASE_BUILD)/build.ninja
	cmake --build $(RELEASE_BUILD) -j $(JOBS)
	cd $(RELEASE_BUILD) && cpack -G DEB

# Every C++ source as clang-format 14 writes it with the repository's .clang-format.
format-check: deps
	@bash scripts/check-format.sh

format: deps
	@bash scripts/check-format.sh --fix

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(FUZZ_BUILD) $(RELEASE_BUILD) out
