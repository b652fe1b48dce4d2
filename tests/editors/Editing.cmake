target_sources(quillon_core_tests PRIVATE
)
