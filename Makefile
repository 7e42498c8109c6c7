# The thin face of the build: every target first sees to the Debian packages that it needs (tools/setup).

PREFIX ?= /usr/local
JOBS ?= $(shell nproc)
FUZZ_SECONDS ?= 300
export JOBS

.PHONY: help demo test bench accuracy docs install format lint asan coverage clang clean
.PHONY: prove fuzz threads memory locales same-bits mutants reference interface

help:
	@echo 'make demo                 build the tool and transform some real points'
	@echo 'make test                 build everything and run all tests'
	@echo 'make bench                compare the speed with PROJ and GeographicLib'
	@echo 'make accuracy             measure against PROJ and exact data, and write docs/accuracy.md'
	@echo 'make docs                 build the reference of the public headers (build/docs/html)'
	@echo 'make install PREFIX=DIR   install libraries, headers and tool (default /usr/local)'
	@echo 'make format               bring all sources into the common format'
	@echo 'make lint                 check format and code'
	@echo 'make asan                 tests under address and undefined-behaviour sanitizers'
	@echo 'make coverage             lines and branches that the tests reach (build/coverage/report)'
	@echo 'make clang                build and test with clang'
	@echo 'make prove                all the long checks, two at a time; goes on where it was stopped'
	@echo 'make fuzz                 look for inputs that break a promise, FUZZ_SECONDS for each target (300)'
	@echo 'make threads              what threads may share, under the thread sanitizer'
	@echo 'make memory               let every allocation fail once'
	@echo 'make locales              all tests and outputs in two other locales'
	@echo 'make same-bits            compare the results of compilers and optimisations bit by bit'
	@echo 'make mutants              change the library at single places and see whether a test fails'
	@echo 'make reference            work the exact data of the accuracy out again'
	@echo 'make interface            compare the binary interface with its baseline, and run a host of then'
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

prove:
	tools/prove

fuzz:
	tools/setup build test clang
	tools/fuzz --seconds $(FUZZ_SECONDS)

threads:
	tools/setup build test
	tools/build tsan
	ctest --preset tsan -j $(JOBS) --no-tests=error

memory:
	tools/setup build test
	tools/build release tests_memory
	build/release/tests/tests_memory --gtest_brief=1

locales:
	tools/setup build test
	tools/build release
	tools/locales

same-bits:
	tools/setup build test bits
	tools/same-bits

mutants:
	tools/setup build test mutants
	tools/build release
	tools/mutants/mutants.py --workers $(JOBS)

reference:
	tools/setup build test reference
	tools/build release vellari_reference vellari_accuracy
	build/release/vellari_reference --check tools/accuracy/data/geocentric-50.txt
	build/release/vellari_accuracy --check docs/accuracy.md

interface:
	tools/setup build test
	tools/build release
	tools/abi --check
	ctest --preset release -R '^(abi|tests_abi)\.' --no-tests=error
	tests/abi/baseline_host.sh cmake c++ $(CURDIR)/build/release/Vellari.so $(CURDIR)/build/release/libVellariHostKit.so

clean:
	rm -rf build
