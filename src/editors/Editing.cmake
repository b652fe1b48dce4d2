target_sources(quillon_core PRIVATE
)
