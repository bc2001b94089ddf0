# Writes a text file into a C++ source as a function that gives it back.
# -DIN=file -DOUT=source -DNAME=function
file(READ "${IN}" text)
# Compilers limit one literal's length; adjacent ones join.
string(LENGTH "${text}" length)
set(body "")
set(at 0)
while(at LESS length)
    string(SUBSTRING "${text}" ${at} 8000 piece)
    string(APPEND body "R\"~~~(${piece})~~~\"\n")
    math(EXPR at "${at} + 8000")
endwhile()
file(WRITE "${OUT}" "namespace TradeForms {\n\nconst char* ${NAME}();\n\nconst char* ${NAME}()\n{\n    return ${body}    ;\n}\n\n} // namespace TradeForms\n")
