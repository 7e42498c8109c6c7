# The thin face of the build: every target first sees to the Debian packages that it needs (tools/setup).

PREFIX ?= /usr/local
JOBS ?= $(shell nproc)
export JOBS

.PHONY: help demo test bench accuracy docs install format lint asan coverage clang clean

help:
	@echo 'make demo                 build the tool and transform some real points'
	@echo 'make test                 build everything and run all tests'
	@echo 'make bench                compare the speed with PROJ and GeographicLib'
	@echo 'make accuracy             measure the projections against PROJ and write docs/accuracy.md'
	@echo 'make docs                 build the reference of the public headers (build/docs/html)'
	@echo 'make install PREFIX=DIR   install libraries, headers and tool (default /usr/local)'
	@echo 'make format               bring all sources into the common format'
	@echo 'make lint                 check format and code'
	@echo 'make asan                 tests under address and undefined-behaviour sanitizers'
	@echo 'make coverage             lines and branches that the tests reach (build/coverage/report)'
	@echo 'make clang                build and test with clang'
	@echo 'make clean                remove build/'

demo:
	tools/setup build
	tools/build release --tool vellari
	tools/demo build/release/vellari

test:
	tools/setup build test
	tools/build release
	ctest --preset release -j $(JOBS) --no-tests=error

bench:
	tools/setup build bench
	tools/build release --bench vellari_bench
	build/release/vellari_bench

accuracy:
	tools/setup build test
	tools/build release vellari_accuracy
	build/release/vellari_accuracy --write docs/accuracy.md

docs:
	tools/setup build docs
	tools/docs

install:
	tools/setup build
	tools/build release --tool
	cmake --install build/release --prefix '$(PREFIX)'

format:
	tools/setup lint
	tools/lint --fix

lint:
	tools/setup build lint
	tools/lint

asan:
	tools/setup build test clang
	tools/build asan
	ctest --preset asan -j $(JOBS) --no-tests=error

coverage:
	tools/setup build test coverage
	tools/build coverage
	find build/coverage -name '*.gcda' -delete
	ctest --preset coverage -j $(JOBS) --no-tests=error
	tools/coverage build/coverage

clang:
	tools/setup build test clang
	tools/build clang
	ctest --preset clang -j $(JOBS) --no-tests=error

clean:
	rm -rf build
