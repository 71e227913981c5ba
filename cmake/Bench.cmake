# Micro benchmarks. Whole programs are timed by scripts/bench.

find_package(benchmark QUIET)
if(TARGET kel_mcr AND benchmark_FOUND)
    file(GLOB BENCH_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/bench/*.cpp)
    if(BENCH_SOURCES)
        add_executable(kel_mcr_bench ${BENCH_SOURCES})
        target_include_directories(kel_mcr_bench PRIVATE ${PROJECT_SOURCE_DIR}/tests)
        target_link_libraries(kel_mcr_bench PRIVATE
            kel_mcr::kel_mcr kel_mcr_scripting benchmark::benchmark_main kel_mcr_flags)
    endif()
endif()
