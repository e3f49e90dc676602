# The two commands of README.md: `make run` and `make test`; `make bench` for the benchmarks.
SHELL := /bin/bash
JOBS ?= 2
TEST_BUILD := build/test
RELEASE_BUILD := build/release
# Builds take a lock so that two builds never share the two cores.
LOCK := flock /tmp/control-obras-build.lock

.PHONY: bootstrap build test bench run clean

bootstrap:
	@bash scripts/bootstrap

build: bootstrap
	@cmake -S . -B $(RELEASE_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCO_BUILD_TESTS=OFF >/dev/null
	@$(LOCK) cmake --build $(RELEASE_BUILD) -j $(JOBS)

test: bootstrap
	@cmake -S . -B $(TEST_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCO_SANITIZE=ON >/dev/null
	@$(LOCK) cmake --build $(TEST_BUILD) -j $(JOBS)
	@ASAN_OPTIONS=detect_leaks=0 scripts/test-postgres run -- \
		ctest --test-dir $(TEST_BUILD) --output-on-failure -j $(JOBS) --timeout 300

bench: bootstrap
	@cmake -S . -B build/bench -G Ninja -DCMAKE_BUILD_TYPE=Release -DCO_BUILD_TESTS=OFF -DCO_BUILD_BENCH=ON >/dev/null
	@$(LOCK) cmake --build build/bench -j $(JOBS)
	@scripts/test-postgres run -- build/bench/bench/control-obras-bench
	@build/bench/bench/control-obras-startup-bench

run: build
	@bash scripts/run-demo $(RELEASE_BUILD)

clean:
	rm -rf build
