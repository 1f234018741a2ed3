# Formkit for Linux: one entry point for a fresh machine.
#   make demo   install what is missing, build the command line, run the tour into demo-out/
#   make test   install what is missing, configure, build, run the tests
BUILD    ?= build
JOBS     ?= 2
CMAKE_BUILD_TYPE ?= RelWithDebInfo

# Debian packages the build and the tests need.
PACKAGES := cmake ninja-build pkg-config g++ binutils \
            libgtest-dev libgmock-dev libbenchmark-dev \
            libglib2.0-dev libsqlite3-dev libfmt-dev libsimpleini-dev \
            libgdk-pixbuf-2.0-dev libcairo2-dev libpango1.0-dev libgdal-dev gdal-bin libproj-dev python3-ezdxf \
            libcli11-dev python3-gdal python3-numpy \
            libwxgtk3.2-dev libgtk-3-dev xvfb xauth \
            dbus gcovr nlohmann-json3-dev

.PHONY: all deps configure build test demo bench coverage test-sanitize fuzz clean

all: build

# Installs the missing packages when run as root (one apt-get update first);
# otherwise names them and stops.
deps:
	@missing=""; \
	for p in $(PACKAGES); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q 'install ok installed' || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  if [ "$$(id -u)" = 0 ]; then \
	    echo "installing:$$missing"; \
	    apt-get update && DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $$missing; \
	  else \
	    echo "missing Debian packages:$$missing (run 'make deps' as root)" >&2; exit 1; \
	  fi; \
	fi

$(BUILD)/build.ninja: CMakeLists.txt | deps
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=$(CMAKE_BUILD_TYPE)

configure: deps $(BUILD)/build.ninja

build: configure
	cmake --build $(BUILD) -j $(JOBS)

test: build
	ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

# The tour: the command line on the sample data, each file checked by a peer.
demo: configure
	cmake --build $(BUILD) -j $(JOBS) --target formkit-cli sim_samples tv-sim
	bash demo/run_demo.sh $(BUILD) demo-out

bench: build
	cmake --build $(BUILD) -j $(JOBS) --target benchmarks boundary_bench

# Line coverage of the library and the emulator by the whole suite, in a
# build folder of its own.
COVERAGE_BUILD ?= build-cov
coverage: deps
	cmake -S . -B $(COVERAGE_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DFORMKIT_COVERAGE=ON
	cmake --build $(COVERAGE_BUILD) -j $(JOBS)
	find $(COVERAGE_BUILD) -name '*.gcda' -delete
	ctest --test-dir $(COVERAGE_BUILD) --output-on-failure -j $(JOBS)
	gcovr -r . -f src/ -f sim/ -j $(JOBS) --print-summary -o $(COVERAGE_BUILD)/coverage.txt $(COVERAGE_BUILD)

# The whole suite built with the address and undefined-behaviour sanitizers,
# in a build folder of its own. Leaks of the toolkit and of GLib's type
# system, which live as long as the process, are not reported. The
# sanitizer's runtime is loaded first into every process, so that programs
# built without it (python with ctypes) can load the library too.
SANITIZE_BUILD ?= build-asan
test-sanitize: deps
	cmake -S . -B $(SANITIZE_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DFORMKIT_SANITIZE=ON
	cmake --build $(SANITIZE_BUILD) -j $(JOBS)
	ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1 LD_PRELOAD=$$(gcc -print-file-name=libasan.so) \
	  ctest --test-dir $(SANITIZE_BUILD) --output-on-failure -j $(JOBS)

# The fuzz targets (libFuzzer, with clang), each run for FUZZ_SECONDS on a
# copy of its seed corpus in $(FUZZ_BUILD)/corpus.
FUZZ_BUILD   ?= build-fuzz
FUZZ_SECONDS ?= 60
# Short allocation stacks and a small quarantine: the drawing targets make
# many small allocations, and ASan's defaults halve their rate. A finding is
# replayed with the default options for its full report.
FUZZ_ASAN    ?= malloc_context_size=2:max_malloc_fill_size=0:quarantine_size_mb=8
FUZZ_TARGETS := preference_block ogb_reader workspace pen_passes tab_pieces settings_file list_objects
fuzz: deps
	@command -v clang++ >/dev/null || DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends clang
	CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
	cmake --build $(FUZZ_BUILD) -j $(JOBS) $(addprefix --target ,$(addsuffix _fuzzer,$(FUZZ_TARGETS)))
	@for t in $(FUZZ_TARGETS); do \
	  mkdir -p $(FUZZ_BUILD)/corpus/$$t && cp -n tests/fuzz/corpus/$$t/* $(FUZZ_BUILD)/corpus/$$t/; \
	  echo "== $$t: $(FUZZ_SECONDS) s"; \
	  ASAN_OPTIONS=$(FUZZ_ASAN) $(FUZZ_BUILD)/tests/fuzz/$${t}_fuzzer -max_total_time=$(FUZZ_SECONDS) -print_final_stats=1 \
	    $(FUZZ_BUILD)/corpus/$$t > $(FUZZ_BUILD)/$$t.log 2>&1 || { tail -40 $(FUZZ_BUILD)/$$t.log; exit 1; }; \
	  grep -E '^stat::number_of_executed_units' $(FUZZ_BUILD)/$$t.log; \
	done

clean:
	rm -rf $(BUILD)
