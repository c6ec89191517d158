# The schemas of the report files, for those who read these with programs of their own. No program of ORVEX needs them.
file(GLOB report_schemas CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/data/schema/*.rng")
install(FILES ${report_schemas} DESTINATION share/orvex/schema)
