module zulcore

go 1.19
