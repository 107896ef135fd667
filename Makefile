# Everything a newcomer needs on a fresh Debian 12 machine: `make run` and `make test`.
BUILD      ?= build
ASAN_BUILD ?= build-asan
FUZZ_BUILD ?= build-fuzz
JOBS       ?= $(shell nproc)
CMAKE_ARGS ?=
SCREENSHOTS ?= $(CURDIR)/out/screenshots

.PHONY: all deps configure build run test test-sanitize fuzz-smoke bench package clean

all: build

deps:
	@bash scripts/install-deps.sh

$(BUILD)/build.ninja:
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo $(CMAKE_ARGS)

configure: deps $(BUILD)/build.ninja

build: configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	@bash scripts/run-editor.sh $(BUILD) $(SCREENSHOTS)

test: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

# The whole suite with AddressSanitizer and UndefinedBehaviorSanitizer; any report fails the run.
test-sanitize: deps
	CC=clang-14 CXX=clang++-14 cmake -S . -B $(ASAN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug \
	  -DZRSIMPRP_SANITIZE=address,undefined -DZRSIMPRP_BUILD_BENCH=OFF $(CMAKE_ARGS)
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	cd $(ASAN_BUILD) && QT_QPA_PLATFORM=offscreen \
	  ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/scripts/lsan.supp:print_suppressions=0 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --output-on-failure -j $(JOBS)

# Every libFuzzer target for FUZZ_SECONDS (default 60) each.
fuzz-smoke: deps
	CC=clang-14 CXX=clang++-14 cmake -S . -B $(FUZZ_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DZRSIMPRP_BUILD_FUZZ=ON -DZRSIMPRP_BUILD_WIDGETS=OFF -DZRSIMPRP_BUILD_TESTS=OFF -DZRSIMPRP_BUILD_BENCH=OFF
	cmake --build $(FUZZ_BUILD) -j $(JOBS)
	bash scripts/fuzz-smoke.sh $(FUZZ_BUILD) $${FUZZ_SECONDS:-60}

bench: build
	bash scripts/run-bench.sh $(BUILD)

package: build
	cd $(BUILD) && cpack -G DEB

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(FUZZ_BUILD) out
