include(CPack)
