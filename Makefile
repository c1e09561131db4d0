# The two commands of the README: `make demo` and `make test`. Each installs what is missing,
# configures, builds and runs.
JOBS ?= 2
WERROR ?= OFF
PRESET ?= default

.PHONY: all deps configure build test demo asan fuzz fuzz-run bench install clean format

all: build

deps:
	scripts/install-deps.sh

configure: deps
	cmake --preset $(PRESET) -DTARVO_WERROR=$(WERROR)

build: configure
	cmake --build --preset $(PRESET) -j $(JOBS)

test: build
	ctest --preset $(PRESET)

demo: build
	scripts/demo.sh build/$(PRESET)/tools/tarvo-docs/tarvo-docs

asan:
	$(MAKE) test PRESET=asan

fuzz:
	scripts/install-deps.sh --fuzz
	cmake --preset fuzz
	cmake --build --preset fuzz -j $(JOBS)

# Runs every harness for FUZZ_SECONDS on its seed corpus.
FUZZ_SECONDS ?= 60
fuzz-run: fuzz
	scripts/fuzz.sh build/fuzz/fuzz $(FUZZ_SECONDS)

# BENCH_SCALE below 1 shrinks the documents of the whole-process run.
BENCH_SCALE ?= 1
bench: build
	scripts/bench.sh build/$(PRESET)/bench $(BENCH_SCALE)

install: build
	cmake --install build/$(PRESET) --prefix $(or $(PREFIX),/usr/local)

format:
	git ls-files '*.h' '*.cpp' | xargs clang-format -i

clean:
	rm -rf build
