// Stands for the headers that every test includes; see CMakeLists.txt.
